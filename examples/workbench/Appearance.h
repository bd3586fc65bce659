// SPDX-License-Identifier: MIT
#pragma once

#include <StyleSheetHandler.h>

/// The look of the application, made from the library's style sheets.
class Appearance
{
public:
    Appearance();

    /// Gives the application style, palette and style sheet for the font size (points) and the
    /// light or plain version. Nothing is re-styled when that changes nothing.
    void apply(int fontSize, bool lightVersion);

private:
    Brimvale::StyleSheetHandler m_sheets;
};
