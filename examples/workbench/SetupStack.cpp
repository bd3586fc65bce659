// SPDX-License-Identifier: MIT
#include "SetupStack.h"

#include "FieldEditor.h"
#include "FieldGroup.h"
#include "NavigationMenu.h"
#include "OperationList.h"
#include "OperationPage.h"
#include "SetupFields.h"
#include "StartPage.h"
#include "StepHeader.h"

#include <BVContainerListControl.h>
#include <BVControlledStackItem.h>
#include <BVControlledStackWidget.h>
#include <BVDragTreeWidget.h>
#include <BVStackControllerWidget.h>
#include <BVStatusBatch.h>
#include <BVWidgetStatusHandler.h>

#include <QHBoxLayout>
#include <QSplitter>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int s_navigationWidth = 190;        // px, at first
constexpr int s_minimumNavigationWidth = 150; // px
constexpr int s_pagesWidth = 850;             // px, beside a navigation of the width above
constexpr int s_startPageWidth = 600;         // px, at most
constexpr int s_noThreshold = -1;             // the start page is shown when the program says so

struct Step
{
    const char *group;
    const char *name;
    const char *hint;
};

/// In the order of the navigation.
const Step s_steps[] = {
    {"press", QT_TRANSLATE_NOOP("SetupStack", "General"), ""},
    {"blank", QT_TRANSLATE_NOOP("SetupStack", "Blank"),
     QT_TRANSLATE_NOOP("SetupStack", "The flat sheet before it is formed.")},
    {"material", QT_TRANSLATE_NOOP("SetupStack", "Material"),
     QT_TRANSLATE_NOOP("SetupStack", "The sheet's elastic and plastic behaviour.")},
    {"tools", QT_TRANSLATE_NOOP("SetupStack", "Tools"),
     QT_TRANSLATE_NOOP("SetupStack", "Punch and die, and the friction on them.")},
};

} // namespace

SetupStack::SetupStack(QWidget *parent)
    : QWidget(parent)
    , m_controller(new BVStackControllerWidget(this, nullptr, true))
    , m_stack(new BVControlledStackWidget(m_controller, this))
    , m_statusHandler(new BVWidgetStatusHandler(this))
    , m_groups(SetupFields::groups().size())
    , m_editors(SetupFields::fields().size())
{
    auto *splitter = new QSplitter(this);
    splitter->addWidget(m_controller);
    splitter->addWidget(m_stack);
    splitter->setStretchFactor(1, 1);
    splitter->setChildrenCollapsible(false);
    splitter->setSizes({s_navigationWidth, s_pagesWidth});
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(splitter);
    createNavigation();
    createSteps();
    createOperations();
    m_stack->setCurrentIndex(0);
}

/// Fields that are hidden next may still take a text over.
SetupStack::~SetupStack()
{
    blockSignals(true);
    m_stack->disconnect(this);
}

void SetupStack::createNavigation()
{
    m_controller->setMinimumWidth(s_minimumNavigationWidth);
    m_controller->setMaximumWidth(2 * s_navigationWidth);
    m_controller->stretchVertical();
    m_controller->setBottomSpacer(0);
    m_controller->setFilterLineShown(true);
    m_controller->setMouseTracking(true);
    m_controller->listControl()->setDragAndDropEnabled(true);
    m_stack->updateMargins(true, true);
    m_stack->setCheckableItems(BVControlledStackWidget::KeepCheckableFlags);
    connect(m_stack,
            QOverload<BVControlledStackItem *, BVControlledStackItem *>::of(
                &BVControlledStackWidget::currentChanged),
            this, &SetupStack::onCurrentChanged);
}

void SetupStack::createSteps()
{
    for (const Step &step : s_steps) {
        const int index = SetupFields::findGroup(QLatin1String(step.group));
        const char *title = SetupFields::groups()[size_t(index)].title;
        auto *group = new FieldGroup(SetupFields::translated(title), SetupFields::fields(), index);
        m_groups[size_t(index)] = group;
        for (FieldEditor *editor : group->editors())
            m_editors[size_t(editor->index())] = editor;
        auto *page = new StepPage(tr(step.name), tr(step.hint), group);
        m_steps.push_back(page);
        watch(page);
        addEntry(page, tr(step.name));
    }
    m_statusHandler->updateParentStatus();
}

void SetupStack::createOperations()
{
    m_operationsEntry = addEntry(nullptr, tr("Operations"));
    m_operationsEntry->setFlag(Qt::ItemIsDropEnabled, true);
    m_operations = new OperationList(m_operationsEntry, this);
    connect(m_operations, &OperationList::pageAdded, this, &SetupStack::watch);
    connect(m_operations, &OperationList::changed, this, &SetupStack::changed);
    m_startPage = new StartPage(this, [this] { return nextEntryPosition(); });
    connect(m_startPage, &StartPage::operationChosen, this, &SetupStack::addOperation);
    m_stack->setStartPage(createStartHolder(), s_noThreshold);
    m_stack->showStartPage(false);
    new NavigationMenu(m_controller, m_operations, m_startPage->kindActions());
}

/// The start page below a header like those of the other pages.
QWidget *SetupStack::createStartHolder()
{
    auto *holder = new QWidget(this);
    auto *header = new StepHeader(holder);
    header->setTitle(tr("Operations"));
    header->setHint(tr("Choose what is done to the blank. Drag operations into order in the "
                       "navigation, and uncheck those that are to be skipped."));
    m_startPage->setMaximumWidth(s_startPageWidth);
    auto *layout = new QVBoxLayout(holder);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(header);
    layout->addWidget(m_startPage, 1);
    return holder;
}

/// The user arranges operations only.
BVControlledStackItem *SetupStack::addEntry(QWidget *page, const QString &text)
{
    BVControlledStackItem *item = m_stack->addItem(page);
    item->setText(text);
    item->setEditable(false);
    item->setCheckable(false);
    item->setFlag(Qt::ItemIsDragEnabled, false);
    item->setFlag(Qt::ItemIsDropEnabled, false);
    return item;
}

void SetupStack::addPage(QWidget *page, const QString &text)
{
    addEntry(page, text);
}

void SetupStack::addOperation(int kind)
{
    BVControlledStackItem *item = m_operations->add(kind);
    item->setCurrent();
    static_cast<OperationPage *>(item->getContainerWidget())->group()->focusNextNeedingInput();
}

QPoint SetupStack::nextEntryPosition() const
{
    return m_controller->tree()->viewport()->mapTo(this, m_operations->nextPosition());
}

void SetupStack::watch(StepPage *page)
{
    m_statusHandler->attach(page);
    connect(page->group(), &FieldGroup::changed, this, &SetupStack::changed);
}

void SetupStack::onCurrentChanged(const BVControlledStackItem *current)
{
    m_stack->showStartPage(current && current == m_operationsEntry);
    m_controller->listControl()->setToolBarEnabled(m_operations->isOperation(current));
}

void SetupStack::showPageOf(QWidget *widget)
{
    BVControlledStackItem *item = nullptr;
    for (; widget && !item; widget = widget->parentWidget())
        item = BVControlledStackItem::itemFromWidget(widget);
    if (item)
        item->setCurrent();
}

std::vector<FieldGroup *> SetupStack::allGroups() const
{
    std::vector<FieldGroup *> groups;
    for (const StepPage *page : m_steps)
        groups.push_back(page->group());
    const QList<OperationPage *> pages = m_operations->pages();
    for (const OperationPage *page : pages)
        groups.push_back(page->group());
    return groups;
}

void SetupStack::setSetup(const ProcessSetup &setup)
{
    const BVStatusBatch batch;
    m_setup = setup;
    for (FieldGroup *group : m_groups)
        group->load(setup);
    m_operations->setOperations(setup.operations());
    Q_EMIT changed();
}

ProcessSetup SetupStack::setup() const
{
    ProcessSetup result = m_setup;
    for (const FieldGroup *group : m_groups)
        group->store(result);
    result.setOperations(m_operations->operations());
    return result;
}

void SetupStack::setHeading(const QString &title, const QString &source)
{
    m_steps.front()->header()->setTitle(title);
    m_steps.front()->header()->setHint(source);
}

void SetupStack::acceptAsReference()
{
    const BVStatusBatch batch;
    m_setup = setup();
    for (FieldGroup *group : allGroups())
        group->acceptAsReference();
    Q_EMIT changed();
}

void SetupStack::resetToReference()
{
    const BVStatusBatch batch;
    for (FieldGroup *group : m_groups)
        group->reset();
    m_operations->setOperations(m_setup.operations());
    Q_EMIT changed();
}

void SetupStack::takeOver()
{
    for (FieldGroup *group : allGroups())
        group->takeOver();
}

bool SetupStack::isChanged() const
{
    const std::vector<FieldGroup *> groups = allGroups();
    return std::any_of(groups.begin(), groups.end(),
                       [](const FieldGroup *group) { return group->isChanged(); }) ||
           !(m_operations->operations() == m_setup.operations());
}

QStringList SetupStack::fieldsNeedingInput() const
{
    QStringList names;
    for (const StepPage *page : m_steps)
        names << page->group()->fieldsNeedingInput();
    const QList<OperationPage *> pages = m_operations->pages();
    for (const OperationPage *page : pages)
        names << page->fieldsNeedingInput();
    return names;
}

void SetupStack::goToNextNeedingInput()
{
    m_stack->goToNextNeedingInput();
    const BVControlledStackItem *item = m_stack->getCurrentItem();
    auto *page = item ? qobject_cast<StepPage *>(item->getContainerWidget()) : nullptr;
    if (page)
        page->group()->focusNextNeedingInput();
}
