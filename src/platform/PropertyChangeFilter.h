// SPDX-License-Identifier: MIT
#pragma once

#include "PresentationAppWidgetsExport.h"

#include <QByteArray>
#include <QList>
#include <QObject>

class QWidget;

/// Re-applies the style sheet to widgets whose dynamic properties have changed.
///
/// A re-polished widget gets a QEvent::StyleChange, lays itself out and paints anew. What is inside
/// a widget includes its dialogs, menus and popups, because a style sheet's rules reach into those
/// too.
class PRESENTATIONAPPWIDGETS_EXPORT PropertyChangeFilter : public QObject
{
    Q_OBJECT

public:
    /// Makes the style evaluate its rules anew for @p widget, at once, and for all widgets inside
    /// it too when @p children is true; hidden windows inside it, such as closed popups, follow
    /// when they are shown. Null is ignored.
    static void repolish(QWidget *widget, bool children = false);
    /// The same at the next turn of the event loop. However many requests a turn brings, each
    /// widget is re-polished once; a widget that is gone by then, or re-polished by repolish() in
    /// between, is left out. A request that comes while the posted ones are served waits for the
    /// next turn.
    static void repolishPost(QWidget *widget, bool children = false);
    /// Re-polishes @p widget, posted, whenever one of the named dynamic properties changes on it.
    /// The filter belongs to the widget; deleting it ends the watch. Null for a null widget.
    static PropertyChangeFilter *installFilter(QWidget *widget, const QList<QByteArray> &properties,
                                               bool children = false);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    PropertyChangeFilter(QWidget *widget, const QList<QByteArray> &properties, bool children);

    QList<QByteArray> m_properties;
    bool m_children;
};
