#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace halvern::test {

/// A checksum over bytes that can be taken piece by piece: FNV-1a, 64 bits.
class Checksum {
  public:
    void Add(std::uint8_t byte) { hash_ = (hash_ ^ byte) * 0x100000001B3U; }
    /// The bytes of a number from the lowest on, whatever the machine's own order.
    void Add(std::uint16_t bits);
    void Add(std::uint32_t bits);
    void Add(float value);

    std::uint64_t Value() const { return hash_; }
    /// 16 digits.
    std::string Text() const;

  private:
    std::uint64_t hash_ = 0xCBF29CE484222325U;
};

/// The numbers of a member of the analysis store.
///
/// A scalar reads as the number itself, a single in binary notation, so that it stands for its bits. An array reads as
/// the count of its elements up to the last one that has a bit set, and the checksum of those: "[212] 55E87025BCD045EB".
/// The sign of a zero is a bit like others.
struct MemberBits {
    std::string name;
    std::string bits;
    bool operator==(const MemberBits&) const = default;
};

/// Every number of the analysis store, in the order of its declaration. Its texts are left out: no result is one, and
/// paths differ from machine to machine.
std::vector<MemberBits> StoreBits();

/// The same of all but the points of the plot request, which are many and stand in other members too.
std::vector<MemberBits> StoreBitsBesidesPlot();

/// Those of the second list that differ from the first: "NAME BITS".
std::vector<std::string> Changed(const std::vector<MemberBits>& before, const std::vector<MemberBits>& after);

/// Where the numbers of a member differ: its name, nothing else.
std::vector<std::string> NamesChanged(const std::vector<MemberBits>& before, const std::vector<MemberBits>& after);

}  // namespace halvern::test
