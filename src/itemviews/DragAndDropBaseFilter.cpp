// SPDX-License-Identifier: MIT
#include "itemviews/DragAndDropBaseFilter.h"

namespace Brimvale {

DragAndDropBaseFilter::~DragAndDropBaseFilter() = default;

void DragAndDropBaseFilter::onDropped(const DragDropInfo &) {}

} // namespace Brimvale
