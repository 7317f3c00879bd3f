#pragma once

#include <iosfwd>
#include <string>
#include <string_view>

#include "simulate/parameters.h"

namespace halvern::simulate {

/// Sets one parameter from its text; a species or a speed is added to those that stand.
///
/// Given     where   what a complaint begins with: "file:line" or "--key"
/// Writes    the parameter, and where it came from
/// Fails     ParameterError with a key that does not exist, a text that is no such value, a value outside its bounds
/// Note      numbers have a decimal point whatever the locale
void Set(Parameters& parameters, std::string_view key, std::string_view value, const std::string& where);

/// Sets what the text of a parameter file says: lines "key = value", blank lines, and comments, from a # at the start
/// of a word to the end of the line.
///
/// Given     name    stands for the file in complaints
/// Fails     ParameterError with a line of another form, with a key given twice, and as Set does
void ReadParameters(Parameters& parameters, std::string_view text, const std::string& name);

/// ReadParameters of a file.
///
/// Fails     ParameterError with a file that can't be read, too
void ReadParameterFile(Parameters& parameters, const std::string& path);

/// Whether there is a parameter of this name.
bool IsKey(std::string_view key);

/// The keys with their defaults and meanings, a line each, and what a species and a speed consist of.
void PrintKeys(std::ostream& out);

}  // namespace halvern::simulate
