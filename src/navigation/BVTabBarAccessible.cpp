// SPDX-License-Identifier: MIT
#include "navigation/BVTabBarAccessible_p.h"

#include "navigation/BVTabBarParts_p.h"

#include <QPointer>

namespace {

struct StatusText
{
    BVWidgetStatus::Status status;
    const char *text;
};

// What the status dot tells those who do not see its colour.
constexpr StatusText s_statusTexts[] = {
    {BVWidgetStatus::NeedInput, QT_TRANSLATE_NOOP("BVAnimatedTabBar", "needs input")},
    {BVWidgetStatus::CompareDifferent,
     QT_TRANSLATE_NOOP("BVAnimatedTabBar", "differs in comparison")},
    {BVWidgetStatus::RuvixInvalid, QT_TRANSLATE_NOOP("BVAnimatedTabBar", "variation not valid")},
    {BVWidgetStatus::StandardChanged,
     QT_TRANSLATE_NOOP("BVAnimatedTabBar", "differs from the standard")},
    {BVWidgetStatus::Different,
     QT_TRANSLATE_NOOP("BVAnimatedTabBar", "differs from the reference")},
    {BVWidgetStatus::RuvixActive, QT_TRANSLATE_NOOP("BVAnimatedTabBar", "variation active")},
    {BVWidgetStatus::UserEdit, QT_TRANSLATE_NOOP("BVAnimatedTabBar", "edited")},
};

QString statusText(BVWidgetStatus::Status status)
{
    const auto dominant = BVWidgetStatus::getDominantStatusFromFlag(status);
    for (const StatusText &entry : s_statusTexts) {
        if (entry.status == dominant)
            return BVAnimatedTabBar::tr(entry.text);
    }
    return QString();
}

/// What the tab shows beside its text.
QString descriptionOf(const BVTab &tab, bool isMarked)
{
    QStringList parts = {tab.m_iconText, statusText(tab.m_status)};
    if (isMarked)
        parts << BVAnimatedTabBar::tr("marked");
    parts.removeAll(QString());
    return parts.join(QLatin1String(", "));
}

QString closeAction()
{
    return QStringLiteral("Close");
}

/// One tab, which has no widget; it stays with the tab while its index changes.
class TabAccessible : public QAccessibleInterface, public QAccessibleActionInterface
{
public:
    TabAccessible(BVAnimatedTabBar *bar, int tab)
        : m_bar(bar)
        , m_tab(tab)
    {
    }

    int index() const
    {
        return m_bar ? BVTabBarAccessible::partsOf(m_bar)->m_tabs.indexOf(m_tab) : -1;
    }
    const BVTab *tab() const
    {
        return m_bar ? BVTabBarAccessible::partsOf(m_bar)->m_tabs.find(index()) : nullptr;
    }

    bool isValid() const override { return tab(); }
    QObject *object() const override { return nullptr; }
    QWindow *window() const override { return parent() ? parent()->window() : nullptr; }
    QAccessibleInterface *parent() const override
    {
        return QAccessible::queryAccessibleInterface(m_bar);
    }
    int childCount() const override { return 0; }
    QAccessibleInterface *child(int /*index*/) const override { return nullptr; }
    int indexOfChild(const QAccessibleInterface * /*child*/) const override { return -1; }
    QAccessibleInterface *childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    QAccessible::Role role() const override { return QAccessible::PageTab; }
    void setText(QAccessible::Text /*kind*/, const QString & /*text*/) override {}

    QRect rect() const override
    {
        const QRect area = tab() ? m_bar->getTabRect(index()) : QRect();
        return area.isEmpty() ? QRect() : QRect(m_bar->mapToGlobal(area.topLeft()), area.size());
    }

    QString text(QAccessible::Text kind) const override
    {
        if (!tab())
            return QString();
        if (kind == QAccessible::Name)
            return tab()->m_text;
        if (kind == QAccessible::Help)
            return tab()->m_toolTip;
        return kind == QAccessible::Description
                   ? descriptionOf(*tab(), index() == m_bar->markedIndex())
                   : QString();
    }

    QAccessible::State state() const override
    {
        QAccessible::State state;
        if (!tab()) {
            state.invalid = true;
            return state;
        }
        const bool isCurrent = index() == m_bar->currentIndex();
        state.disabled = !m_bar->isEnabled() || !tab()->isEnabled();
        state.selectable = true;
        state.selected = isCurrent;
        state.focusable = true;
        state.focused = isCurrent && m_bar->hasFocus();
        state.hasPopup = tab()->m_state.testFlag(BVTab::HasMenuButton);
        state.invisible = !m_bar->isVisible();
        state.offscreen = !m_bar->rect().intersects(m_bar->getTabRect(index()));
        return state;
    }

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ActionInterface
                   ? static_cast<QAccessibleActionInterface *>(this)
                   : nullptr;
    }

    /// As with the pointer, a disabled tab can be operated only while it is current.
    QStringList actionNames() const override
    {
        QStringList names;
        const BVTab *known = tab();
        if (!known || !m_bar->isEnabled())
            return names;
        if (!known->isEnabled() && index() != m_bar->currentIndex())
            return names;
        names << pressAction() << setFocusAction();
        if (known->m_state.testFlag(BVTab::HasMenuButton))
            names << showMenuAction();
        if (known->m_state.testFlag(BVTab::HasCloseButton))
            names << closeAction();
        return names;
    }

    QString localizedActionName(const QString &name) const override
    {
        return name == closeAction() ? BVAnimatedTabBar::tr("Close")
                                     : QAccessibleActionInterface::localizedActionName(name);
    }

    void doAction(const QString &name) override
    {
        if (!m_bar || !actionNames().contains(name))
            return;
        if (name == pressAction() || name == setFocusAction())
            choose(name == setFocusAction());
        else if (name == closeAction())
            Q_EMIT m_bar->closeButtonClicked(index());
        else
            BVTabBarAccessible::partsOf(m_bar)->m_press.askForMenu(index());
    }

    QStringList keyBindingsForAction(const QString &name) const override
    {
        return name == closeAction() ? QStringList(QStringLiteral("Delete")) : QStringList();
    }

private:
    void choose(bool focuses)
    {
        const QPointer<BVAnimatedTabBar> bar = m_bar; // a slot may delete it, and this with it
        bar->setCurrentIndex(index());
        if (bar && focuses)
            bar->setFocus(Qt::OtherFocusReason);
    }

    QPointer<BVAnimatedTabBar> m_bar;
    int m_tab; // its id
};

QAccessibleInterface *barInterface(const QString &key, QObject *object)
{
    if (key != QLatin1String("BVAnimatedTabBar"))
        return nullptr;
    auto *bar = qobject_cast<BVAnimatedTabBar *>(object);
    return bar ? new BVTabBarAccessible(bar) : nullptr;
}

} // namespace

BVTabBarAccessible::BVTabBarAccessible(BVAnimatedTabBar *bar)
    : QAccessibleWidget(bar, QAccessible::PageTabList)
{
}

BVTabBarAccessible::~BVTabBarAccessible()
{
    for (const QAccessible::Id id : qAsConst(m_tabs))
        QAccessible::deleteAccessibleInterface(id);
}

void BVTabBarAccessible::install()
{
    // The toolkit forgets it with each application object, and refuses to keep it twice.
    QAccessible::installFactory(barInterface);
}

void BVTabBarAccessible::announce(BVAnimatedTabBar *bar, int tab, QAccessible::Event event)
{
    if (!QAccessible::isActive())
        return;
    QAccessibleEvent announced(bar, event);
    announced.setChild(tab);
    QAccessible::updateAccessibility(&announced);
}

void BVTabBarAccessible::announceState(BVAnimatedTabBar *bar, int tab, QAccessible::State changed)
{
    if (!QAccessible::isActive())
        return;
    QAccessibleStateChangeEvent announced(bar, changed);
    announced.setChild(tab);
    QAccessible::updateAccessibility(&announced);
}

void BVTabBarAccessible::announceCurrent(BVAnimatedTabBar *bar)
{
    const int current = bar->currentIndex();
    if (current < 0)
        return;
    announce(bar, current, QAccessible::Selection);
    if (bar->hasFocus())
        announce(bar, current, QAccessible::Focus);
}

BVTabBarParts *BVTabBarAccessible::partsOf(const BVAnimatedTabBar *bar)
{
    return bar->m_parts.get();
}

BVAnimatedTabBar *BVTabBarAccessible::bar() const
{
    return qobject_cast<BVAnimatedTabBar *>(object());
}

int BVTabBarAccessible::tabCount() const
{
    return bar() ? bar()->count() : 0;
}

int BVTabBarAccessible::childCount() const
{
    return tabCount() + QAccessibleWidget::childCount();
}

QAccessibleInterface *BVTabBarAccessible::child(int index) const
{
    const int tabs = tabCount();
    if (index < 0 || index >= tabs)
        return QAccessibleWidget::child(index - tabs);
    dropGoneTabs();
    const int tab = partsOf(bar())->m_tabs.idAt(index);
    QAccessible::Id &id = m_tabs[tab];
    if (id == 0)
        id = QAccessible::registerAccessibleInterface(new TabAccessible(bar(), tab));
    return QAccessible::accessibleInterface(id);
}

void BVTabBarAccessible::dropGoneTabs() const
{
    if (m_tabs.size() <= tabCount())
        return;
    for (auto known = m_tabs.begin(); known != m_tabs.end();) {
        if (partsOf(bar())->m_tabs.indexOf(known.key()) >= 0) {
            ++known;
        } else {
            QAccessible::deleteAccessibleInterface(known.value());
            known = m_tabs.erase(known);
        }
    }
}

int BVTabBarAccessible::indexOfChild(const QAccessibleInterface *child) const
{
    if (const auto *tab = dynamic_cast<const TabAccessible *>(child))
        return tab->index();
    const int index = QAccessibleWidget::indexOfChild(child);
    return index < 0 ? index : index + tabCount();
}

QAccessibleInterface *BVTabBarAccessible::childAt(int x, int y) const
{
    const int index = bar() ? bar()->getIndexAtPosition(QPoint(x, y)) : -1;
    return index >= 0 ? child(index) : QAccessibleWidget::childAt(x, y);
}

QAccessibleInterface *BVTabBarAccessible::focusChild() const
{
    if (bar() && bar()->hasFocus() && bar()->currentIndex() >= 0)
        return child(bar()->currentIndex());
    return QAccessibleWidget::focusChild();
}
