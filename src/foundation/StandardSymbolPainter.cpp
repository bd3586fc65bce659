// SPDX-License-Identifier: MIT
#include "foundation/StandardSymbolPainter.h"

#include "foundation/BVWidgetStatus.h"
#include "foundation/BVWidgetStatusChangedEvent.h"
#include "foundation/BVWidgetStatusHandler.h"

#include <QAbstractSpinBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QEvent>
#include <QLineEdit>
#include <QPainter>
#include <QPainterPath>
#include <QSplitter>
#include <QStyle>
#include <QStyleOptionComboBox>
#include <QWidget>

namespace {

constexpr int s_symbolSize = 12; // px
constexpr int s_margin = 4;      // px, to the edge of the widget

/// The lock itself, drawn in the text colour of the widget that it stands on.
class LockSymbol : public QWidget
{
public:
    explicit LockSymbol(QWidget *parent)
        : QWidget(parent)
    {
        setObjectName(QStringLiteral("bv_standardlocked"));
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setAttribute(Qt::WA_NoSystemBackground);
        setFocusPolicy(Qt::NoFocus);
        setAccessibleName(QCoreApplication::translate("StandardSymbolPainter", "Locked"));
        hide();
        resize(s_symbolSize, s_symbolSize);
    }

    void place()
    {
        const QRect area =
            parentWidget()->rect().adjusted(s_margin, 0, -s_margin - arrowWidth(), 0);
        const QRect mirrored =
            QStyle::visualRect(parentWidget()->layoutDirection(), parentWidget()->rect(), area);
        const auto alignment = Qt::AlignRight | Qt::AlignVCenter;
        const Qt::LayoutDirection direction = parentWidget()->layoutDirection();
        setGeometry(QStyle::alignedRect(direction, alignment, size(), mirrored));
        raise();
    }

    /// Shows or hides the lock and gives a line edit the margin that goes with it.
    void setShown(bool shown)
    {
        if (shown == !isHidden())
            return;
        setVisible(shown);
        if (auto *edit = qobject_cast<QLineEdit *>(parentWidget())) {
            QMargins margins = edit->textMargins();
            const int room = shown ? s_symbolSize + s_margin : -s_symbolSize - s_margin;
            if (edit->layoutDirection() == Qt::LeftToRight)
                margins.setRight(margins.right() + room);
            else
                margins.setLeft(margins.left() + room);
            edit->setTextMargins(margins);
        }
    }

protected:
    void paintEvent(QPaintEvent * /*event*/) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setOpacity(isEnabled() ? 0.8 : 0.4);
        const QColor color = parentWidget()->palette().color(parentWidget()->foregroundRole());

        QPainterPath shackle;
        shackle.moveTo(3.5, 6);
        shackle.lineTo(3.5, 4);
        shackle.arcTo(QRectF(3.5, 1.5, 5, 5), 180, -180);
        shackle.lineTo(8.5, 6);
        painter.setPen(QPen(color, 1.5));
        painter.drawPath(shackle);
        painter.setPen(Qt::NoPen);
        painter.setBrush(color);
        painter.drawRoundedRect(QRectF(2, 5.5, 8, 5.5), 1, 1);
    }

private:
    int arrowWidth() const
    {
        const auto *combo = qobject_cast<const QComboBox *>(parentWidget());
        if (!combo)
            return 0;
        QStyleOptionComboBox option;
        option.initFrom(combo);
        option.editable = combo->isEditable();
        return combo->style()
            ->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxArrow, combo)
            .width();
    }
};

LockSymbol *findSymbol(QWidget *widget)
{
    const QObjectList &children = widget->children();
    for (QObject *child : children) {
        if (auto *symbol = dynamic_cast<LockSymbol *>(child))
            return symbol;
    }
    return nullptr;
}

/// Whether the widget shows values of its own, and has room for a lock.
bool canShowLock(const QWidget *widget)
{
    return !qobject_cast<const QSplitter *>(widget) &&
           !widget->findChild<BVWidgetStatusHandler *>(QString(), Qt::FindDirectChildrenOnly);
}

/// The buttons of a spin box leave no room for a lock, its text does.
QWidget *placeOfLock(QWidget *widget)
{
    QLineEdit *edit = qobject_cast<QAbstractSpinBox *>(widget)
                          ? widget->findChild<QLineEdit *>(QString(), Qt::FindDirectChildrenOnly)
                          : nullptr;
    return edit ? edit : widget;
}

void showLock(QWidget *widget, bool locked)
{
    widget = placeOfLock(widget);
    LockSymbol *symbol = findSymbol(widget);
    if (!symbol && locked && canShowLock(widget))
        symbol = new LockSymbol(widget);
    if (!symbol)
        return;
    symbol->place();
    symbol->setShown(locked);
}

} // namespace

bool StandardSymbolPainter::handleStandardLocked(QWidget *widget, QEvent *event)
{
    if (!widget || !event)
        return false;
    const QEvent::Type type = event->type();
    if (type == BVWidgetStatusChangedEvent::s_eventType) {
        const auto stati = static_cast<BVWidgetStatusChangedEvent *>(event)->status();
        showLock(widget, BVWidgetStatus::testFlag(stati, BVWidgetStatus::StandardLocked));
    } else if (type == QEvent::Resize || type == QEvent::Show || type == QEvent::StyleChange ||
               type == QEvent::LayoutDirectionChange) {
        updateLock(widget);
    }
    return false;
}

void StandardSymbolPainter::updateLock(QWidget *widget)
{
    if (widget)
        showLock(widget, BVWidgetStatus::testStatus(widget, BVWidgetStatus::StandardLocked));
}

void StandardSymbolPainter::removeLock(QWidget *widget)
{
    if (widget)
        showLock(widget, false);
}
