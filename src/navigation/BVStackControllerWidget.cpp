// SPDX-License-Identifier: MIT
#include "navigation/BVStackControllerWidget.h"

#include "itemviews/BVContainerListControl.h"
#include "itemviews/BVContextMenuPlace_p.h"
#include "itemviews/BVDragTreeWidget.h"
#include "itemviews/BVItemDelegate.h"
#include "navigation/BVControlledStackWidget.h"
#include "navigation/BVStackContextHandler.h"
#include "navigation/BVStackContextMenu_p.h"
#include "navigation/BVStackEntries_p.h"
#include "navigation/BVStackFilterLine_p.h"
#include "platform/PropertyChangeFilter.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QHeaderView>
#include <QVBoxLayout>

#include <utility>

namespace {

constexpr int s_width = 130; // px, as all below
constexpr int s_scrollBarWidth = 15;
constexpr int s_aroundList = 8; // the controller's height beside that of the list on top
constexpr int s_topMargin = 6;
constexpr int s_bottomSpacerHeight = 3;
constexpr int s_setSpacerSize = 10;
constexpr QMargins s_checkMargins(0, 2, 2, 2);

constexpr char s_leftRight[] = "leftRight";
constexpr char s_alignRight[] = "alignRight"; // of the header, set by the stack

/// The row itself, or the next one above that is neither hidden nor in a closed branch; null for
/// none.
QTreeWidgetItem *inSightAtOrAbove(QTreeWidgetItem *row)
{
    QTreeWidgetItem *inSight = row;
    for (; row; row = row->parent())
        if (row->isHidden() || (row->parent() && !row->parent()->isExpanded()))
            inSight = row->parent();
    return inSight;
}

/// The middle of what can be seen of the row.
QPoint placeOf(BVDragTreeWidget *tree, QTreeWidgetItem *row)
{
    tree->scrollToItem(row);
    const QRect inSight = tree->visualItemRect(row) & tree->viewport()->rect();
    return inSight.isEmpty() ? BVContextMenuPlace::s_nowhere : inSight.center();
}

} // namespace

BVStackControllerWidget::BVStackControllerWidget(QWidget *parent, BVDragTreeWidget *tree,
                                                 bool showToolBar)
    : QFrame(parent)
    , m_listControl(new BVContainerListControl(this, tree, showToolBar))
    , m_contextMenu(new BVStackContextMenu(this))
    , m_mainLayout(new QVBoxLayout(this))
    , m_bottomSpacer(
          new QSpacerItem(0, s_bottomSpacerHeight, QSizePolicy::Maximum, QSizePolicy::Expanding))
{
    setProperty(s_leftRight, true);
    initLayout();
    initTree();
    setFixedWidth(s_width);
    setFocusProxy(m_listControl);
    connect(m_contextMenu, &BVStackContextMenu::sigTriggered, this,
            &BVStackControllerWidget::onCustomActionTriggeredOnTree);
}

/// The tree tells of its end, and whoever listens finds no tree here any more.
BVStackControllerWidget::~BVStackControllerWidget()
{
    if (m_stack)
        m_stack->m_entries->leaveTree();
    if (tree())
        BVStackEntries::keepModels(tree());
    const QWidget *listControl = m_listControl;
    m_listControl = nullptr;
    delete listControl;
}

void BVStackControllerWidget::initLayout()
{
    m_mainLayout->setContentsMargins(0, s_topMargin, 0, 0);
    m_mainLayout->setSpacing(0);
    m_listControl->setAutoResize(true);
    m_listControl->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    m_mainLayout->addWidget(m_listControl);
    m_mainLayout->addSpacerItem(m_bottomSpacer);
}

void BVStackControllerWidget::initTree()
{
    BVDragTreeWidget *tree = m_listControl->tree();
    auto *delegate = new BVItemDelegate(tree);
    delegate->installLeftIconIndentationUpdateHandler(tree);
    delegate->setCheckIndicatorAlignment(Qt::AlignRight);
    delegate->setCheckIndicatorMargins(s_checkMargins);
    tree->setItemDelegate(delegate);
    tree->setMinimumWidth(s_width);
    tree->setHeaderLabel(QString());
    tree->setHeaderHidden(true);
    tree->installEventFilter(this);
    tree->header()->installEventFilter(this);
    connect(tree, &QWidget::customContextMenuRequested, this, [this, tree](const QPoint &position) {
        showCustomContextMenu(tree, tree->itemAt(position), position);
    });
}

BVDragTreeWidget *BVStackControllerWidget::tree() const
{
    return m_listControl ? m_listControl->tree() : nullptr;
}

BVContainerListControl *BVStackControllerWidget::listControl() const
{
    return m_listControl;
}

BVControlledStackWidget *BVStackControllerWidget::getControlledStack() const
{
    return m_stack;
}

void BVStackControllerWidget::setControlledStack(BVControlledStackWidget *stack)
{
    if (stack && stack->tree() != tree())
        return;
    BVControlledStackWidget *const before = std::exchange(m_stack, stack);
    if (stack && m_isOnTop)
        stack->updateMargins(true, true);
    if (before && before != stack)
        before->leaveController();
}

// Place

void BVStackControllerWidget::setControllerOnTop(bool onTop, int height)
{
    setProperty(s_leftRight, false);
    PropertyChangeFilter::repolishPost(this, true);
    if (onTop != m_isOnTop) {
        m_isOnTop = onTop;
        if (m_stack)
            m_stack->updateMargins(onTop, onTop);
    }
    if (height >= 0 && m_listControl) {
        m_listControl->setFixedHeight(height);
        m_listControl->setAutoResize(false);
        setFixedHeight(height + s_aroundList);
    }
    setMinimumWidth(0);
    setMaximumWidth(QWIDGETSIZE_MAX);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void BVStackControllerWidget::setListOnTop()
{
    m_mainLayout->setContentsMargins(0, 0, 0, 0);
}

void BVStackControllerWidget::stretchVertical()
{
    if (!m_listControl)
        return;
    m_listControl->setAutoResize(false);
    m_listControl->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
    m_mainLayout->setStretchFactor(m_listControl, 1);
}

void BVStackControllerWidget::setBottomSpacer(int height)
{
    if (height == -1)
        m_bottomSpacer->changeSize(s_setSpacerSize, s_setSpacerSize, QSizePolicy::Expanding,
                                   QSizePolicy::Expanding);
    else if (height >= 0)
        m_bottomSpacer->changeSize(s_setSpacerSize, height, QSizePolicy::Expanding,
                                   QSizePolicy::Fixed);
    m_mainLayout->invalidate();
}

void BVStackControllerWidget::setMainLayoutMargins(int left, int top, int right, int bottom)
{
    const auto either = [](int margin, int present) { return margin >= 0 ? margin : present; };
    const QMargins present = m_mainLayout->contentsMargins();
    m_mainLayout->setContentsMargins(either(left, present.left()), either(top, present.top()),
                                     either(right, present.right()),
                                     either(bottom, present.bottom()));
}

void BVStackControllerWidget::insertAboveSpacer(QBoxLayout *layout, QWidget *widget)
{
    m_mainLayout->insertLayout(m_mainLayout->count() - 1, layout);
    connect(widget, &QObject::destroyed, layout, &QObject::deleteLater);
}

void BVStackControllerWidget::addAdditional(QWidget *widget, int horizontalMargin,
                                            int verticalMargin)
{
    if (!widget)
        return;
    auto *layout = new QHBoxLayout;
    layout->setContentsMargins(horizontalMargin, verticalMargin, horizontalMargin, verticalMargin);
    layout->addWidget(widget);
    insertAboveSpacer(layout, widget);
}

void BVStackControllerWidget::addAdditionalCentered(QWidget *widget)
{
    if (!widget)
        return;
    auto *layout = new QHBoxLayout;
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addStretch();
    layout->addWidget(widget);
    layout->addStretch();
    insertAboveSpacer(layout, widget);
}

/// The fixed width at first has the last word.
void BVStackControllerWidget::updateMinimumWidth()
{
    const BVDragTreeWidget *tree = this->tree();
    if (minimumWidth() == maximumWidth() || !tree->isResizable() ||
        tree->sizePolicy().horizontalPolicy() == QSizePolicy::Fixed)
        return;
    const bool scrolls = tree->sizeHint().height() > tree->height();
    const int width = tree->minimumWidth() + (scrolls ? s_scrollBarWidth : 0);
    setMinimumWidth(qMin(width, maximumWidth()));
}

// Header

QWidget *BVStackControllerWidget::headerWidget() const
{
    return tree() ? tree()->header() : nullptr;
}

QString BVStackControllerWidget::getHeaderLabel() const
{
    return tree() ? tree()->headerItem()->text(0) : QString();
}

void BVStackControllerWidget::setHeaderLabel(const QString &text, bool alignRight)
{
    m_isHeaderRight = alignRight;
    BVDragTreeWidget *tree = this->tree();
    if (!tree)
        return;
    tree->setHeaderLabel(text);
    tree->setHeaderHidden(text.isEmpty());
    alignHeader();
}

/// The toolkit's style sheets leave the text of headers where it is.
void BVStackControllerWidget::alignHeader()
{
    const bool right = m_isHeaderRight || headerWidget()->property(s_alignRight).toBool();
    const Qt::Alignment side = right ? Qt::AlignRight : Qt::AlignLeft;
    tree()->headerItem()->setTextAlignment(0, int(side | Qt::AlignVCenter));
}

// Behaviour

void BVStackControllerWidget::setReadOnly(bool readOnly)
{
    m_readOnly = readOnly;
    if (!m_listControl)
        return;
    m_listControl->setEditable(!readOnly);
    m_listControl->setToolBarEnabled(!readOnly);
    m_listControl->setDragAndDropEnabled(!readOnly);
    m_listControl->setTreeEditTriggersEnabled(!readOnly);
}

void BVStackControllerWidget::setMouseTracking(bool enable)
{
    QFrame::setMouseTracking(enable);
    if (m_listControl)
        m_listControl->setMouseTracking(enable);
}

void BVStackControllerWidget::enableMultiSelection(bool enable)
{
    if (m_listControl)
        m_listControl->enableMultiSelection(enable);
}

void BVStackControllerWidget::setFilterLineShown(bool show)
{
    if (show == isFilterLineShown() || !tree())
        return;
    if (show) {
        m_filterLine = new BVStackFilterLine(tree(), this);
        m_mainLayout->insertWidget(0, m_filterLine);
    } else {
        m_filterLine->release();
        m_filterLine->hide();
        m_filterLine->deleteLater();
        m_filterLine = nullptr;
    }
}

// Context menu

void BVStackControllerWidget::createCustomContextMenu(int options, bool customPolicy, int argument)
{
    m_menuArgument = argument;
    m_contextMenu->create(options);
    if (tree())
        tree()->setContextMenuPolicy(customPolicy ? Qt::CustomContextMenu : Qt::DefaultContextMenu);
}

QList<QAction *> BVStackControllerWidget::menuActions() const
{
    return m_contextMenu->actions();
}

QAction *BVStackControllerWidget::menuAction(MenuOptions option) const
{
    return m_contextMenu->action(option);
}

void BVStackControllerWidget::enableMenuOption(MenuOptions option, bool enable)
{
    m_contextMenu->enable(option, enable);
}

void BVStackControllerWidget::showCustomContextMenu(BVDragTreeWidget *tree, QTreeWidgetItem *item,
                                                    const QPoint &position)
{
    if (tree && (!item || item->treeWidget() == tree))
        m_contextMenu->show(tree, item, position, m_contextHandler);
}

void BVStackControllerWidget::setCustomContextMenuHandler(BVStackContextHandler *handler)
{
    m_contextHandler = handler;
}

BVStackContextHandler *BVStackControllerWidget::customContextMenuHandler() const
{
    return m_contextHandler;
}

bool BVStackControllerWidget::openMenuByKey()
{
    BVDragTreeWidget *tree = this->tree();
    if (tree->contextMenuPolicy() != Qt::CustomContextMenu)
        return false;
    QTreeWidgetItem *inSight = inSightAtOrAbove(tree->currentItem());
    const QPoint place = inSight ? placeOf(tree, inSight) : BVContextMenuPlace::s_nowhere;
    showCustomContextMenu(tree, tree->currentItem(), place);
    return true;
}

// Events

void BVStackControllerWidget::changeEvent(QEvent *event)
{
    QFrame::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        m_contextMenu->retranslate();
}

/// The toolkit makes the first row current unless the focus comes by the mouse.
bool BVStackControllerWidget::focusWithoutCurrent(Qt::FocusReason reason)
{
    if (reason == Qt::MouseFocusReason)
        return false;
    QFocusEvent event(QEvent::FocusIn, Qt::MouseFocusReason);
    QCoreApplication::sendEvent(tree(), &event);
    return true;
}

bool BVStackControllerWidget::eventFilter(QObject *watched, QEvent *event)
{
    if (tree() && watched == headerWidget() && event->type() == QEvent::DynamicPropertyChange)
        alignHeader();
    if (!tree() || watched != tree())
        return QFrame::eventFilter(watched, event);
    if (event->type() == QEvent::Resize)
        updateMinimumWidth();
    if (event->type() == QEvent::FocusIn && m_stack && !tree()->currentIndex().isValid())
        return focusWithoutCurrent(static_cast<QFocusEvent *>(event)->reason());
    const bool isMenuKey =
        event->type() == QEvent::ContextMenu &&
        static_cast<QContextMenuEvent *>(event)->reason() == QContextMenuEvent::Keyboard;
    return isMenuKey && openMenuByKey();
}

void BVStackControllerWidget::leaveEvent(QEvent *event)
{
    QFrame::leaveEvent(event);
    onLeave();
}

void BVStackControllerWidget::onLeave()
{
    if (tree())
        tree()->setHoverItem(nullptr);
}
