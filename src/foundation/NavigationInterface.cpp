// SPDX-License-Identifier: MIT
#include "foundation/NavigationInterface.h"

NavigationInterface::~NavigationInterface() = default;
