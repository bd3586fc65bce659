// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include "controls/BVStatusControl.h"
#include "foundation/BVStatusProperties.h"

#include <QFrame>

class BVDisclosureArea;
class BVDisclosureHeader;
class BVWidgetStatusHandler;
class QLayout;

/// A titled section of a form that opens and closes.
///
/// The header toggles the section with a click, Space or Return; "+" and the arrow key of the
/// reading direction open it, "-" and the other arrow key close it. It is what gets the focus when
/// the section is given it, and when the section closes around the focus. A closed section is as
/// high as its header and keeps its width; an open one grows with its content.
///
/// The section carries the combined status of its content, also while it is closed: that of the
/// content widget and of the widgets directly inside it, and of any that are attached to
/// statusHandler(). Widgets that lie deeper count through the status of what they lie in, or are
/// attached.
///
/// The section does not remember its state; a program that wants it kept stores isOpen().
class BVWIDGETS_EXPORT BVProgressiveDisclosure : public BVStatusControl<QFrame>
{
    Q_OBJECT
    BV_STATUS_PROPERTIES
    Q_PROPERTY(QString title READ title WRITE setTitle)
    Q_PROPERTY(bool open READ isOpen WRITE setOpen)
    Q_PROPERTY(bool animated READ isAnimated WRITE setAnimated)

public:
    explicit BVProgressiveDisclosure(QWidget *parent = nullptr);

    /// Opens every section that @p widget lies in, the outermost first, so that it can be shown and
    /// given the focus. Null is ignored.
    static void openAround(const QWidget *widget);

    QString title() const;
    /// Sets the text of the header. An ampersand makes the character behind it the mnemonic.
    void setTitle(const QString &title);

    /// Open at first.
    bool isOpen() const { return m_open; }

    /// Whether the height changes bit by bit. On at first; where the style has animations off, and
    /// while the section does not show, it changes at once all the same.
    bool isAnimated() const { return m_animated; }
    void setAnimated(bool animated) { m_animated = animated; }

    /// What the section discloses, an empty widget at first. Null once someone else has taken it.
    QWidget *contentWidget() const;
    /// Replaces the content by @p widget, which the section owns from now on; the one before is
    /// deleted. Null is ignored.
    void setContentWidget(QWidget *widget);
    /// Replaces the content by a new widget with this layout. Null and a layout that has a parent
    /// already are ignored.
    void setContentLayout(QLayout *layout);

    /// Combines the status of the content into that of the section.
    BVWidgetStatusHandler *statusHandler() const { return m_handler; }

    bool eventFilter(QObject *watched, QEvent *event) override;

public Q_SLOTS:
    void setOpen(bool open);
    void toggle();

Q_SIGNALS:
    /// The section has been closed or opened, by the user or the program; its height may still be
    /// on the way.
    void sigClosed(bool closed);
    /// An entry of the standard context menu was chosen; @p action is a StandardAction.
    void standardActionTriggered(int action);

private:
    int duration() const;
    void followStatus(QWidget *child);
    void moveFocusToHeader();
    void updatePolicy();

    BVDisclosureHeader *m_header;
    BVDisclosureArea *m_area;
    BVWidgetStatusHandler *m_handler;
    bool m_open = true;
    bool m_animated = true;
    bool m_isHeightFixed = false;                              // while not quite open
    QSizePolicy::Policy m_openPolicy = QSizePolicy::Preferred; // vertical, meanwhile
};
