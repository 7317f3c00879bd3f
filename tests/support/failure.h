#pragma once

#include <gtest/gtest.h>

#include "store/failure.h"

/// The statement ends in the run-time failure of this number.
#define EXPECT_FAILURE(number, statement)                                                     \
    do {                                                                                      \
        int failureNumber = 0;                                                                \
        try {                                                                                 \
            static_cast<void>(statement);                                                     \
        } catch (const halvern::RuntimeFailure& failure) {                                    \
            failureNumber = failure.Number();                                                 \
        }                                                                                     \
        EXPECT_EQ(failureNumber, number) << "run-time failure of " #statement " (0 is none)"; \
    } while (false)
