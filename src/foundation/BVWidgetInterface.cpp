// SPDX-License-Identifier: MIT
#include "foundation/BVWidgetInterface.h"

#include "foundation/BVNamedFlags_p.h"
#include "foundation/BVStatusBatch.h"

#include <QAction>
#include <QActionGroup>
#include <QByteArray>
#include <QCoreApplication>
#include <QMenu>
#include <QMetaObject>
#include <QSignalMapper>
#include <QWidget>

namespace {

/// The text of a standard menu entry with its tool tip and the action it stands for.
struct StandardEntry
{
    BVWidgetInterface::StandardAction id;
    const char *text;
    const char *toolTip;
};

// clang-format off
constexpr StandardEntry s_useAsStandard = {
    BVWidgetInterface::UseAsStandard,
    QT_TRANSLATE_NOOP("BVWidgetInterface", "Use as Standard"),
    QT_TRANSLATE_NOOP("BVWidgetInterface", "Make this parameter default")};
constexpr StandardEntry s_useAsDefault = {
    BVWidgetInterface::UseAsDefault,
    QT_TRANSLATE_NOOP("BVWidgetInterface", "Use as Default"),
    QT_TRANSLATE_NOOP("BVWidgetInterface", "Make this parameter standard")};
constexpr StandardEntry s_deleteVariable = {
    BVWidgetInterface::DeleteVariable,
    QT_TRANSLATE_NOOP("BVWidgetInterface", "Delete Variable"),
    QT_TRANSLATE_NOOP("BVWidgetInterface", "Delete Variable")};
constexpr StandardEntry s_resetToDefault = {
    BVWidgetInterface::ResetValue,
    QT_TRANSLATE_NOOP("BVWidgetInterface", "Reset Value to Default"),
    QT_TRANSLATE_NOOP("BVWidgetInterface", "Reset the parameter to the default")};
constexpr StandardEntry s_resetToStandard = {
    BVWidgetInterface::ResetValue,
    QT_TRANSLATE_NOOP("BVWidgetInterface", "Reset Value to Standard"),
    QT_TRANSLATE_NOOP("BVWidgetInterface", "Reset the parameter to the standard")};
constexpr StandardEntry s_resetVariable = {
    BVWidgetInterface::ResetVariable,
    QT_TRANSLATE_NOOP("BVWidgetInterface", "Reset Variable to Standard"),
    QT_TRANSLATE_NOOP("BVWidgetInterface", "Reset the Variable to the standard")};
constexpr StandardEntry s_resetAll = {
    BVWidgetInterface::ResetAll,
    QT_TRANSLATE_NOOP("BVWidgetInterface", "Reset all to Standard"),
    QT_TRANSLATE_NOOP("BVWidgetInterface", "Reset the parameter and Variable to the standard")};
// clang-format on

QString translated(const char *text)
{
    return QCoreApplication::translate("BVWidgetInterface", text);
}

/// The menu's one signal mapper, with nothing connected to it.
QSignalMapper *signalMapper(QMenu *menu)
{
    const QString name = QStringLiteral("signal_mapper");
    auto *mapper = menu->findChild<QSignalMapper *>(name, Qt::FindDirectChildrenOnly);
    if (!mapper) {
        mapper = new QSignalMapper(menu);
        mapper->setObjectName(name);
    }
    mapper->disconnect();
    return mapper;
}

/// The method as connect() wants it, with the code that SIGNAL() and SLOT() put in front.
QByteArray connectableMember(const QObject *receiver, const char *member)
{
    QByteArray text(member);
    const bool hasCode =
        text.startsWith(char('0' + QSLOT_CODE)) || text.startsWith(char('0' + QSIGNAL_CODE));
    if (text.isEmpty() || hasCode)
        return text;
    const QByteArray signature = QMetaObject::normalizedSignature(member);
    const bool isSignal = receiver->metaObject()->indexOfSignal(signature) >= 0;
    return QByteArray::number(isSignal ? QSIGNAL_CODE : QSLOT_CODE) + signature;
}

/// Creates the entries of one menu and puts them before one of its actions.
class StandardMenuBuilder
{
public:
    StandardMenuBuilder(QMenu *menu, QSignalMapper *mapper, QAction *before)
        : m_menu(menu)
        , m_mapper(mapper)
        , m_before(before)
    {
    }

    void add(const StandardEntry &entry) { m_menu->insertAction(m_before, create(entry, m_menu)); }

    /// An action that has an id but stands in no menu.
    void addHidden(const StandardEntry &entry, QActionGroup *group)
    {
        QAction *action = create(entry, group);
        action->setCheckable(true);
        group->addAction(action);
    }

private:
    QAction *create(const StandardEntry &entry, QObject *parent)
    {
        auto *action = new QAction(translated(entry.text), parent);
        action->setToolTip(translated(entry.toolTip));
        QObject::connect(action, &QAction::triggered, m_mapper,
                         QOverload<>::of(&QSignalMapper::map));
        m_mapper->setMapping(action, entry.id);
        return action;
    }

    QMenu *m_menu;
    QSignalMapper *m_mapper;
    QAction *m_before;
};

} // namespace

BVWidgetInterface::BVWidgetInterface(QWidget *statusWidget)
    : m_statusWidget(statusWidget)
{
}

BVWidgetInterface::~BVWidgetInterface() = default;

void BVWidgetInterface::setBvStatus(BVWidgetStatus::Status status, bool on)
{
    const QPointer<QWidget> widget(getStatusWidget());
    if (!widget || BVWidgetStatus::testStatus(widget, status) == on)
        return;
    BVWidgetStatus::setStatus(widget, status, on);
    if (widget) // or a slot has deleted it, and with it this
        emitChanged();
}

void BVWidgetInterface::setBvStatus(BVWidgetStatus::Stati stati)
{
    const QPointer<QWidget> widget(getStatusWidget());
    if (!widget || BVWidgetStatus::isStatus(widget, stati))
        return;
    BVWidgetStatus::setStatus(widget, stati);
    if (widget)
        emitChanged();
}

bool BVWidgetInterface::getBvStatus(BVWidgetStatus::Status status) const
{
    return BVWidgetStatus::testStatus(getStatusWidget(), status);
}

BVWidgetStatus::Stati BVWidgetInterface::getBvStatus() const
{
    return BVWidgetStatus::status(getStatusWidget());
}

void BVWidgetInterface::onStatusChanged() {}

void BVWidgetInterface::updateWidget()
{
    BVStatusBatch::repolish(getStatusWidget());
}

QWidget *BVWidgetInterface::getStatusWidget() const
{
    return m_statusWidget;
}

void BVWidgetInterface::setStatusWidget(QWidget *widget)
{
    m_statusWidget = widget;
}

void BVWidgetInterface::resetBvStatus()
{
    QWidget *widget = getStatusWidget();
    if (!widget)
        return;
    BVWidgetStatus::clear(widget);
    emitChanged();
}

void BVWidgetInterface::emitChanged()
{
    updateWidget();
    onStatusChanged();
}

#define BV_DEFINE_FLAG(Name, Flag) \
    void BVWidgetInterface::set##Name(bool on) \
    { \
        setBvStatus(BVWidgetStatus::Flag, on); \
    } \
    bool BVWidgetInterface::is##Name() const \
    { \
        return getBvStatus(BVWidgetStatus::Flag); \
    }

BV_FOR_NAMED_FLAGS(BV_DEFINE_FLAG)
BV_DEFINE_FLAG(ResetToStandardDisabled, ResetToStandardDisabled)
BV_DEFINE_FLAG(DeleteVariableDisabled, DeleteVariableDisabled)

#undef BV_DEFINE_FLAG

void BVWidgetInterface::setupStandardMenu(QMenu *menu, const QObject *receiver,
                                          const char *member) const
{
    const BVWidgetStatus::Stati stati = getBvStatus();
    if (!BVWidgetStatus::testFlag(stati, BVWidgetStatus::ResetToStandardDisabled))
        setupStandardMenu(stati, menu, receiver, member);
}

bool BVWidgetInterface::popupStandardMenu(QMenu *menu, const QObject *receiver,
                                          const QPoint &globalPosition) const
{
    setupStandardMenu(menu, receiver, SIGNAL(standardActionTriggered(int)));
    if (menu->isEmpty()) {
        delete menu;
        return false;
    }
    menu->setToolTipsVisible(true);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(globalPosition);
    return true;
}

void BVWidgetInterface::setupStandardMenu(BVWidgetStatus::Stati stati, QMenu *menu,
                                          const QObject *receiver, const char *member)
{
    const auto has = [stati](BVWidgetStatus::Status status) {
        return BVWidgetStatus::testFlag(stati, status);
    };
    const bool wanted = has(BVWidgetStatus::DefaultChanged) ||
                        has(BVWidgetStatus::StandardChanged) || has(BVWidgetStatus::RuvixActive);
    if (!menu || !receiver || !member || !wanted)
        return;

    QAction *separator = nullptr;
    if (!menu->actions().isEmpty())
        separator = menu->insertSeparator(menu->actions().constFirst());
    QSignalMapper *mapper = signalMapper(menu);
    StandardMenuBuilder builder(menu, mapper, separator);

    auto *group = new QActionGroup(menu);
    builder.addHidden(s_useAsStandard, group);
    builder.addHidden(s_useAsDefault, group);

    if (has(BVWidgetStatus::RuvixActive) && !has(BVWidgetStatus::DeleteVariableDisabled))
        builder.add(s_deleteVariable);
    const bool isDefault = has(BVWidgetStatus::StandardDefault);
    const bool canReset = isDefault || has(BVWidgetStatus::ResetAvailable);
    if (canReset)
        builder.add(isDefault ? s_resetToDefault : s_resetToStandard);
    const bool canResetVariable =
        has(BVWidgetStatus::RuvixEnabled) && has(BVWidgetStatus::RuvixStandardChanged);
    if (canResetVariable)
        builder.add(s_resetVariable);
    if (canReset && canResetVariable)
        builder.add(s_resetAll);
    menu->addSeparator();

    QObject::connect(mapper, SIGNAL(mapped(int)), receiver, connectableMember(receiver, member));
}
