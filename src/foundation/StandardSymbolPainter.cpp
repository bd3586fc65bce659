// SPDX-License-Identifier: MIT
#include "foundation/StandardSymbolPainter.h"

#include "foundation/BVWidgetStatus.h"
#include "foundation/BVWidgetStatusChangedEvent.h"

#include <QEvent>
#include <QPainter>
#include <QPainterPath>
#include <QStyle>
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
        resize(s_symbolSize, s_symbolSize);
    }

    void place()
    {
        const QRect area = parentWidget()->rect().adjusted(s_margin, 0, -s_margin, 0);
        const auto alignment = Qt::AlignRight | Qt::AlignVCenter;
        setGeometry(
            QStyle::alignedRect(parentWidget()->layoutDirection(), alignment, size(), area));
        raise();
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

void updateSymbol(QWidget *widget, bool locked)
{
    LockSymbol *symbol = findSymbol(widget);
    if (!locked) {
        if (symbol)
            symbol->hide();
        return;
    }
    if (!symbol)
        symbol = new LockSymbol(widget);
    symbol->place();
    symbol->show();
}

} // namespace

bool StandardSymbolPainter::handleStandardLocked(QWidget *widget, QEvent *event)
{
    if (!widget || !event)
        return false;
    const QEvent::Type type = event->type();
    if (type == BVWidgetStatusChangedEvent::s_eventType) {
        const auto *change = static_cast<BVWidgetStatusChangedEvent *>(event);
        updateSymbol(widget,
                     BVWidgetStatus::testFlag(change->status(), BVWidgetStatus::StandardLocked));
    } else if (type == QEvent::Resize || type == QEvent::Show ||
               type == QEvent::LayoutDirectionChange) {
        updateSymbol(widget, BVWidgetStatus::testStatus(widget, BVWidgetStatus::StandardLocked));
    }
    return false;
}
