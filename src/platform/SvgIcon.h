// SPDX-License-Identifier: MIT
#pragma once

#include "PresentationAppWidgetsExport.h"

#include <QIcon>

/// An icon from a scalable picture (".svg" or ".svgz"), sharp at every size and device pixel ratio.
/// Null icon, with one warning, when the file cannot be read or is no such picture.
PRESENTATIONAPPWIDGETS_EXPORT QIcon createSvgIcon(const QString &fileName);

/// An icon with a picture of its own for small sizes (up to 16 device-independent px) and one for
/// all larger ones. Null icon, with one warning, when either file cannot be read.
PRESENTATIONAPPWIDGETS_EXPORT QIcon createTwoSizeSvgIcon(const QString &smallFileName,
                                                         const QString &largeFileName);
