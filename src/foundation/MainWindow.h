// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

class QWidget;

namespace Brimvale {

/// The widget in the application object's dynamic property "MainWindow", which receives the
/// library's custom events. Null without an application object or when the property holds no
/// widget. Once it has been asked for, the property is emptied when that widget is deleted.
BVWIDGETS_EXPORT QWidget *mainWindow();

} // namespace Brimvale
