// SPDX-License-Identifier: MIT
#include "itemviews/BVTreeViewDataListener.h"

BVTreeViewDataListener::~BVTreeViewDataListener() = default;
