#include "shell/version.h"

#include "store/fixed_text.h"
#include "store/format.h"

namespace halvern {

std::string RevisionNumbers() {
    return Concat({Format(kVersionMajor, "0."), Format(kVersionMinor, "00."), Format(kVersionRevision, "0000")});
}

}  // namespace halvern
