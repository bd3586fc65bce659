// SPDX-License-Identifier: MIT
#include "itemviews/BVViewAwareModel.h"

BVViewAwareModel::~BVViewAwareModel() = default;
