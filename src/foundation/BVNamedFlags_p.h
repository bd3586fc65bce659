// SPDX-License-Identifier: MIT
#pragma once

/// Applies @p X to each of the fourteen named flags: the name behind "set" and "is" of its setter
/// and test, and the flag.
// clang-format off
#define BV_FOR_NAMED_FLAGS(X) \
    X(NeedInputStatus, NeedInput) \
    X(UserEditStatus, UserEdit) \
    X(DifferentStatus, Different) \
    X(CompareDifferent, CompareDifferent) \
    X(RuvixEnabled, RuvixEnabled) \
    X(RuvixStandardChanged, RuvixStandardChanged) \
    X(RuvixActive, RuvixActive) \
    X(RuvixInvalid, RuvixInvalid) \
    X(StandardEnabled, StandardEnabled) \
    X(StandardDefined, StandardDefined) \
    X(StandardDefault, StandardDefault) \
    X(DefaultChanged, DefaultChanged) \
    X(StandardChanged, StandardChanged) \
    X(StandardLocked, StandardLocked)
// clang-format on
