#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ui/form.h"

namespace halvern::test {

/// The names of a form's controls, in their order.
inline std::vector<std::string> NamesOn(const Form& form) {
    std::vector<std::string> names;
    for (const Control* control : form.Controls())
        names.push_back(control->Name());
    return names;
}

inline bool IsWithin(const Place& inner, const Place& outer) {
    return inner.left >= outer.left && inner.top >= outer.top && inner.left + inner.width <= outer.left + outer.width &&
           inner.top + inner.height <= outer.top + outer.height;
}

inline bool Overlap(const Place& a, const Place& b) {
    return a.left < b.left + b.width && b.left < a.left + a.width && a.top < b.top + b.height &&
           b.top < a.top + a.height;
}

/// What a person expects of any dialog: every control that is shown lies within it, and none over another, but for those
/// that stand in a frame.
inline void ExpectLaidOut(const Form& form) {
    const Place room{0, 0, form.Where().width, form.Where().height};
    for (const Control* control : form.Controls()) {
        if (!control->IsShown())
            continue;
        EXPECT_TRUE(IsWithin(control->Where(), room)) << control->Name() << " reaches out of " << form.Name();
        for (const Control* other : form.Controls()) {
            if (other == control || !other->IsShown() || !Overlap(control->Where(), other->Where()))
                continue;
            const bool framed = (other->Kind() == ControlKind::kFrame && IsWithin(control->Where(), other->Where())) ||
                                (control->Kind() == ControlKind::kFrame && IsWithin(other->Where(), control->Where()));
            EXPECT_TRUE(framed) << control->Name() << " lies over " << other->Name();
        }
    }
}

}  // namespace halvern::test
