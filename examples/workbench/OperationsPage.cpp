// SPDX-License-Identifier: MIT
#include "OperationsPage.h"

#include <BVContainerListControl.h>
#include <BVDragAndDropManager.h>
#include <BVDragTreeWidget.h>
#include <BVLabel.h>

#include <QHBoxLayout>
#include <QTreeWidgetItem>
#include <QVBoxLayout>

#include <tuple>

namespace {

constexpr int s_margin = 8;   // px
constexpr int s_spacing = 12; // px, between the lists

struct Operation
{
    const char *key;
    const char *name;
    const char *toolTip;
    bool isPlanned; ///< at first
};

#define TEXT(text) QT_TRANSLATE_NOOP("OperationsPage", text)

// clang-format off
const Operation s_operations[] = {
    {"gravity",    TEXT("Gravity"),    TEXT("The blank sags onto the tools"), true},
    {"holding",    TEXT("Holding"),    TEXT("The blank holder closes"), true},
    {"drawing",    TEXT("Drawing"),    TEXT("The punch draws the blank into the die"), true},
    {"trimming",   TEXT("Trimming"),   TEXT("The edge is cut off"), true},
    {"springback", TEXT("Springback"), TEXT("The part leaves the tools"), true},
    {"heating",    TEXT("Heating"),    TEXT("The blank is warmed in a furnace"), false},
    {"redrawing",  TEXT("Redrawing"),  TEXT("The cup is drawn deeper with a smaller punch"), false},
    {"ironing",    TEXT("Ironing"),    TEXT("The wall is made thinner and even"), false},
    {"piercing",   TEXT("Piercing"),   TEXT("Holes are punched"), false},
    {"flanging",   TEXT("Flanging"),   TEXT("The edge is bent up or down"), false},
    {"hemming",    TEXT("Hemming"),    TEXT("The flange is folded flat"), false},
    {"annealing",  TEXT("Annealing"),  TEXT("Heat takes back the hardening"), false},
};
// clang-format on

#undef TEXT

QTreeWidgetItem *createItem(const Operation &operation)
{
    auto *item = new QTreeWidgetItem;
    item->setText(0, OperationsPage::tr(operation.name));
    item->setToolTip(0, OperationsPage::tr(operation.toolTip));
    item->setData(0, Qt::UserRole, QString::fromLatin1(operation.key));
    item->setFlags((item->flags() | Qt::ItemIsEditable) & ~Qt::ItemIsDropEnabled);
    return item;
}

} // namespace

OperationsPage::OperationsPage(QWidget *parent)
    : QWidget(parent)
    , m_available(new BVContainerListControl(this, nullptr, false))
    , m_plan(new BVContainerListControl(this, nullptr, true))
    , m_summary(new BVLabel(this))
{
    auto *lists = new QHBoxLayout;
    lists->setSpacing(s_spacing);
    lists->addWidget(createList(m_available, tr("Available operations")));
    lists->addWidget(createList(m_plan, tr("Plan")));
    m_summary->setProperty("hint", true);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(s_margin, s_margin, s_margin, s_margin);
    layout->addLayout(lists, 1);
    layout->addWidget(m_summary);
    m_available->setEditable(false);
    for (const Operation &operation : s_operations) {
        BVContainerListControl *list = operation.isPlanned ? m_plan : m_available;
        list->insertTopLevelItem(list->topLevelItemCount(), createItem(operation));
    }
    setUpDragging();
    updateSummary();
}

QWidget *OperationsPage::createList(BVContainerListControl *list, const QString &title)
{
    auto *column = new QWidget(this);
    auto *label = new BVLabel(title, column);
    label->setProperty("header", true);
    label->setBuddy(list->tree());
    list->tree()->setHeaderHidden(true);
    list->tree()->setRootIsDecorated(false);
    list->enableMultiSelection(true);
    auto *layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(label);
    layout->addWidget(list, 1);
    return column;
}

void OperationsPage::setUpDragging()
{
    const std::tuple<BVContainerListControl *, BVContainerListControl *, QString> lists[] = {
        {m_available, m_plan, tr("Drag operations from here into the plan, or back")},
        {m_plan, m_available, tr("Drop operations where they belong in the plan")},
    };
    for (const auto &[list, other, hint] : lists) {
        list->setDragAndDropEnabled(true);
        BVDragAndDropManager *manager = list->tree()->initDragAndDropManager();
        manager->setSecondTreeView(other->tree());
        manager->setDragAndDropInfoText(hint);
        manager->setUseMoveVisualizationLine(true);
        connect(list, &BVContainerListControl::sigItemsDropped, this,
                &OperationsPage::updateSummary);
        connect(list, &BVContainerListControl::sigItemsTakenOver, this,
                [](const QList<QTreeWidgetItem *> &, const BVContainerListControl *target) {
                    target->tree()->setFocus(); // where they can be moved on
                });
    }
    connect(m_plan->tree(), &QTreeWidget::itemChanged, this, &OperationsPage::updateSummary);
    connect(m_plan, &BVContainerListControl::sigItemsAboutToBeRemoved, this,
            [this](const QList<QTreeWidgetItem *> &items, bool *remove) {
                *remove = false;
                takeBack(items);
            });
}

void OperationsPage::takeBack(const QList<QTreeWidgetItem *> &items)
{
    m_available->tree()->moveItems(items, nullptr, -1);
    updateSummary();
}

void OperationsPage::updateSummary()
{
    QStringList names;
    for (int i = 0; i < m_plan->topLevelItemCount(); ++i)
        names.append(m_plan->topLevelItem(i)->text(0));
    m_summary->setText(names.isEmpty() ? tr("Nothing is planned yet")
                                       : tr("Planned: %1").arg(names.join(QStringLiteral(", "))));
}
