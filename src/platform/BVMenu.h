// SPDX-License-Identifier: MIT
#pragma once

#include "PresentationAppWidgetsExport.h"

#include <QMenu>

/// The application's menu: a menu that shows the tool tips of its actions.
class PRESENTATIONAPPWIDGETS_EXPORT BVMenu : public QMenu
{
    Q_OBJECT

public:
    explicit BVMenu(QWidget *parent = nullptr);
    explicit BVMenu(const QString &title, QWidget *parent = nullptr);
};
