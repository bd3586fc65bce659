// SPDX-License-Identifier: MIT
#include "layout/BVResizeWidgetAccessible_p.h"

namespace {

constexpr int s_step = 10; // px

// By type: the name, and the direction away from the window.
struct Place
{
    const char *name;
    int x;
    int y;
};

constexpr Place s_places[] = {
    {QT_TRANSLATE_NOOP("BVResizeWidget", "Left edge of the window"), -1, 0},
    {QT_TRANSLATE_NOOP("BVResizeWidget", "Top left corner of the window"), -1, -1},
    {QT_TRANSLATE_NOOP("BVResizeWidget", "Top edge of the window"), 0, -1},
    {QT_TRANSLATE_NOOP("BVResizeWidget", "Top right corner of the window"), 1, -1},
    {QT_TRANSLATE_NOOP("BVResizeWidget", "Right edge of the window"), 1, 0},
    {QT_TRANSLATE_NOOP("BVResizeWidget", "Bottom right corner of the window"), 1, 1},
    {QT_TRANSLATE_NOOP("BVResizeWidget", "Bottom edge of the window"), 0, 1},
    {QT_TRANSLATE_NOOP("BVResizeWidget", "Bottom left corner of the window"), -1, 1},
};

QAccessibleInterface *gripInterface(const QString &key, QObject *object)
{
    auto *grip = qobject_cast<BVResizeWidget *>(object);
    return grip && key == QLatin1String("BVResizeWidget") ? new BVResizeWidgetAccessible(grip)
                                                          : nullptr;
}

} // namespace

BVResizeWidgetAccessible::BVResizeWidgetAccessible(BVResizeWidget *grip)
    : QAccessibleWidget(grip, QAccessible::Grip)
{
}

void BVResizeWidgetAccessible::install()
{
    // The toolkit forgets it with each application object, and refuses to keep it twice.
    QAccessible::installFactory(gripInterface);
}

QString BVResizeWidgetAccessible::text(QAccessible::Text kind) const
{
    const QString text = QAccessibleWidget::text(kind);
    return kind == QAccessible::Name && text.isEmpty()
               ? BVResizeWidget::tr(s_places[grip()->resizeType()].name)
               : text;
}

QStringList BVResizeWidgetAccessible::actionNames() const
{
    return QStringList{increaseAction(), decreaseAction()} + QAccessibleWidget::actionNames();
}

void BVResizeWidgetAccessible::doAction(const QString &name)
{
    const Place &place = s_places[grip()->resizeType()];
    const QPoint outward(place.x * s_step, place.y * s_step);
    if (name == increaseAction())
        grip()->moveBy(outward);
    else if (name == decreaseAction())
        grip()->moveBy(-outward);
    else
        QAccessibleWidget::doAction(name);
}

BVResizeWidget *BVResizeWidgetAccessible::grip() const
{
    return static_cast<BVResizeWidget *>(object());
}
