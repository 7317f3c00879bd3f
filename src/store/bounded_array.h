#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <type_traits>

#include "store/failure.h"

namespace halvern {

/// The bounds of one dimension, both ends included.
template <std::int32_t First, std::int32_t Last>
struct Bounds {
    static_assert(First <= Last);
    static constexpr std::int32_t kFirst = First;
    static constexpr std::int32_t kLast = Last;
    static constexpr std::size_t kCount = static_cast<std::size_t>(Last - First) + 1;
};

/// An array of fixed bounds, checked at every access; the first index runs fastest in memory.
///
/// Fails     9 with an index outside its bounds
/// Note      elements of an arithmetic type are not set by the constructor: the store is static and so starts at zero,
///           and pages that a data set does not reach are never touched
template <class Element, class... Dimensions>
class BoundedArray {
  public:
    static constexpr std::size_t kCount = (Dimensions::kCount * ...);

    template <class... Index>
    Element& operator()(Index... index) {
        return elements_[Offset(index...)];
    }
    template <class... Index>
    const Element& operator()(Index... index) const {
        return elements_[Offset(index...)];
    }

    /// All elements in the order of memory.
    std::span<Element, kCount> Elements() { return std::span<Element, kCount>(elements_); }
    std::span<const Element, kCount> Elements() const { return std::span<const Element, kCount>(elements_); }

    /// Sets every element, whatever it held.
    void Fill(const Element& value) {
        for (Element& element : elements_)
            element = value;
    }

    /// Sets every element to zero, without touching pages that hold nothing else.
    void Zero() requires std::is_arithmetic_v<Element> {
        constexpr std::size_t kChunk = 1024;
        for (std::size_t first = 0; first < kCount; first += kChunk) {
            const std::size_t count = kCount - first < kChunk ? kCount - first : kChunk;
            if (!IsZero(elements_ + first, count))
                std::memset(elements_ + first, 0, count * sizeof(Element));
        }
    }

  private:
    template <class... Index>
    static std::size_t Offset(Index... index) {
        static_assert(sizeof...(Index) == sizeof...(Dimensions));
        std::size_t offset = 0;
        std::size_t stride = 1;
        (Step<Dimensions>(index, offset, stride), ...);
        return offset;
    }

    template <class Dimension, class Index>
    static void Step(Index index, std::size_t& offset, std::size_t& stride) {
        static_assert(std::is_integral_v<Index> && std::is_signed_v<Index>);
        // One comparison serves both bounds: an index below the first wraps to a huge number.
        const auto place = static_cast<std::size_t>(static_cast<std::int64_t>(index) - Dimension::kFirst);
        if (place >= Dimension::kCount)
            Fail(FailureCode::kSubscriptOutOfRange);
        offset += place * stride;
        stride *= Dimension::kCount;
    }

    static bool IsZero(const Element* first, std::size_t count) {
        const auto* bytes = reinterpret_cast<const unsigned char*>(first);
        const std::size_t size = count * sizeof(Element);
        return bytes[0] == 0 && std::memcmp(bytes, bytes + 1, size - 1) == 0;
    }

    Element elements_[kCount];
};

}  // namespace halvern
