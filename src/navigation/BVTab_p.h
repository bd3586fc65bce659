// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/BVWidgetStatus.h"

#include "navigation/BVTabTexts_p.h"

#include <QFlags>
#include <QMap>
#include <QString>
#include <QVariant>

/// One tab of an animated tab bar.
struct BVTab
{
    enum State {
        Disabled = 8,
        HasCloseButton = 16,
        ClosePressed = 64,
        HasMenuButton = 128,
        MenuPressed = 512, // its menu is open or about to be
    };
    Q_DECLARE_FLAGS(States, State)

    int m_id = 0; // stays with the tab while its index changes
    QString m_text;
    QString m_toolTip;
    QMap<int, QVariant> m_data; // by role
    QString m_iconUrl;
    QString m_darkStyleIconUrl; // empty: the shape of the other, in the colour of the text
    QString m_iconText;         // what the icon tells those who do not see it
    QString m_imageUrl;         // empty: that of the bar
    QString m_darkStyleImageUrl;
    bool m_darkStyle = false;
    bool m_noImageAfterTab = false;
    BVWidgetStatus::Status m_status = BVWidgetStatus::Normal;
    States m_state;
    BVTabTexts m_texts; // measured when they are needed

    bool isEnabled() const { return !m_state.testFlag(Disabled); }
    bool isIconTinted() const { return m_darkStyle && m_darkStyleIconUrl.isEmpty(); }
    /// The icon and the image after it that the tab shows; @p imageAfterTabs is that of the bar.
    QString shownIcon() const;
    QString shownImage(const QString &imageAfterTabs) const;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(BVTab::States)
