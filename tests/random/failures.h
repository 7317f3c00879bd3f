#pragma once

#include <string_view>

#include "random/model.h"

namespace halvern::random_user {

/// Whether a run-time failure is one that the program may end with here.
///
/// Given     command   "Keld.KeldIt", "Plotit.drag", ...: what was being carried out
bool MayFail(std::string_view command, int number, const Model& model);

}  // namespace halvern::random_user
