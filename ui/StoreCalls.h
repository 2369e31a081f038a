// SPDX-License-Identifier: MIT
#pragma once

#include "store/Console.h"
#include "store/StoreError.h"

#include <utility>

namespace giggle {

/// Runs a fetch or a save. One that fails is written to the console, and the screen carries on: false.
template <class Call>
bool loggingFailure(Call&& call)
{
    try {
        std::forward<Call>(call)();
        return true;
    } catch (const StoreError& error) {
        printFailure(error.localizedDescription());
        return false;
    }
}

} // namespace giggle
