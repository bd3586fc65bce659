// SPDX-License-Identifier: MIT
#include "Appearance.h"

#include <BVStatusColor.h>

#include <QApplication>

Appearance::Appearance()
    : m_sheets(true)
{
    QApplication::setStyle(m_sheets.getBaseStyle());
    m_sheets.load(Brimvale::StyleSheetHandler::s_defaultCSS);
}

void Appearance::apply(int fontSize, bool lightVersion)
{
    m_sheets.setDefinedFontSize(fontSize);
    m_sheets.setUseLightVersion(lightVersion);
    BVStatusColor::colors().setUseLightColor(lightVersion);
    const QString sheet = m_sheets.getStyleSheet();
    if (sheet == qApp->styleSheet())
        return;
    QApplication::setPalette(m_sheets.getPalette());
    qApp->setStyleSheet(sheet);
}
