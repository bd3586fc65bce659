// SPDX-License-Identifier: MIT
#include "itemviews/BVItemDelegate.h"

#include "foundation/BVStatusColor.h"
#include "units/BVFormatter.h"
#include "units/BVValueEdit.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QTreeView>

#include <utility>

namespace {

constexpr int s_darkGray = 110;   // below it, light texts read better than dark ones
constexpr int s_markAlpha = 48;   // of 255
constexpr int s_headerAlpha = 20; // of 255

/// The dynamic property of an editor with the value that it was opened with.
constexpr char s_cellValue[] = "bv_cellValue";

const QStyle *styleOf(const QStyleOptionViewItem &option)
{
    return option.widget ? option.widget->style() : QApplication::style();
}

/// The space beside icon and text in a cell.
int contentMargin(const QStyle *style, const QStyleOption *option, const QWidget *widget)
{
    return style->pixelMetric(QStyle::PM_FocusFrameHMargin, option, widget) + 1;
}

bool isNumber(const QVariant &value)
{
    return value.userType() == QMetaType::Double;
}

/// The colour of the cell's status; invalid if it is that of plain text.
QColor statusColor(const QStyleOptionViewItem &option, const QModelIndex &index)
{
    const BVWidgetStatus::Stati stati = getWidgetStatus(index);
    if (stati == BVWidgetStatus::Normal || !(option.state & QStyle::State_Enabled))
        return QColor();
    const BVWidgetStatus::Status status = BVWidgetStatus::getDominantStatusFromFlag(stati);
    const BVStatusColor &colors = BVStatusColor::colors();
    if (colors.forLightBackground(status) == colors.forLightBackground(BVWidgetStatus::Normal))
        return QColor();
    const auto group = option.state & QStyle::State_Active ? QPalette::Normal : QPalette::Inactive;
    const auto role = option.state & QStyle::State_Selected ? QPalette::Highlight : QPalette::Base;
    const bool isDark = qGray(option.palette.color(group, role).rgb()) < s_darkGray;
    return isDark ? colors.forDarkBackground(status) : colors.forLightBackground(status);
}

/// The text with each of its lines cut to the width.
QString elided(const QStyleOptionViewItem &option, QString text, int width)
{
    QStringList lines =
        text.replace(QLatin1Char('\n'), QChar::LineSeparator).split(QChar::LineSeparator);
    for (QString &line : lines)
        line = option.fontMetrics.elidedText(line, option.textElideMode, width);
    return lines.join(QChar(QChar::LineSeparator));
}

void drawText(QPainter *painter, const QStyleOptionViewItem &option, const QRect &rect,
              const QString &text, const QColor &color)
{
    const QStyle *style = styleOf(option);
    const int margin = contentMargin(style, &option, option.widget);
    const QRect textRect = rect.adjusted(margin, 0, -margin, 0);
    const bool wraps = option.features & QStyleOptionViewItem::WrapText;
    const QString shown = wraps ? text : elided(option, text, textRect.width());
    const Qt::Alignment alignment =
        QStyle::visualAlignment(option.direction, option.displayAlignment);
    painter->save();
    painter->setFont(option.font);
    painter->setPen(color);
    style->drawItemText(painter, textRect, int(alignment) | (wraps ? Qt::TextWordWrap : 0),
                        option.palette, true, shown);
    painter->restore();
}

/// Sets a tree's indentation to the width of an icon with its margins.
class IconIndentation : public QObject
{
public:
    explicit IconIndentation(QTreeView *view)
        : QObject(view)
        , m_view(view)
    {
        view->installEventFilter(this);
        connect(view, &QAbstractItemView::iconSizeChanged, this, [this] { update(); });
        update();
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (watched == m_view && event->type() == QEvent::StyleChange)
            update();
        return false;
    }

private:
    void update()
    {
        const QStyle *style = m_view->style();
        const int width = m_view->iconSize().isValid()
                              ? m_view->iconSize().width()
                              : style->pixelMetric(QStyle::PM_SmallIconSize, nullptr, m_view);
        m_view->setIndentation(width + 2 * contentMargin(style, nullptr, m_view));
    }

    QTreeView *m_view;
};

} // namespace

BVItemDelegate::BVItemDelegate(QObject *parent)
    : QStyledItemDelegate(parent)
    , m_formatter(new BVFormatter(this))
{
    watchFormatter(m_formatter);
}

BVItemDelegate::~BVItemDelegate() = default;

// Texts

void BVItemDelegate::watchFormatter(BVFormatter *formatter)
{
    connect(formatter, &BVFormatter::settingsChanged, this,
            [this] { Q_EMIT sizeHintChanged(QModelIndex()); });
}

BVFormatter *BVItemDelegate::formatter(int column) const
{
    if (BVFormatter *found = m_columnFormatters.value(column))
        return found;
    return m_formatter;
}

void BVItemDelegate::setFormatter(int column, BVFormatter *formatter)
{
    const QPointer<BVFormatter> before = m_columnFormatters.take(column);
    if (before == formatter && formatter) {
        m_columnFormatters.insert(column, formatter);
        return;
    }
    if (before && before != m_formatter && !m_columnFormatters.values().contains(before))
        disconnect(before, nullptr, this, nullptr);
    if (formatter) {
        if (formatter != m_formatter && !m_columnFormatters.values().contains(formatter))
            watchFormatter(formatter);
        m_columnFormatters.insert(column, formatter);
    }
    Q_EMIT sizeHintChanged(QModelIndex());
}

BVFormatter *BVItemDelegate::formatterFor(const QModelIndex &index) const
{
    return formatter(index.column());
}

QString BVItemDelegate::getDisplayedText(const QModelIndex &index, const QLocale &locale) const
{
    const QVariant value = index.data(Qt::DisplayRole);
    if (isNumber(value))
        return formatterFor(index)->textFromValue(value.toDouble());
    QString text = displayText(value, locale);
    return text.replace(QChar::LineSeparator, QLatin1Char('\n'));
}

void BVItemDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    const QVariant value = index.data(Qt::DisplayRole);
    if (isNumber(value))
        option->text = formatterFor(index)->textFromValue(value.toDouble());
    const bool isHeader = index.data(GroupHeaderRole).toBool();
    const bool isBold = isHeader || index.data(BoldRole).toBool();
    const bool isItalic = index.data(ItalicRole).toBool();
    if (!isBold && !isItalic)
        return;
    option->font.setBold(isBold || option->font.bold());
    option->font.setItalic(isItalic || option->font.italic());
    option->fontMetrics = QFontMetrics(option->font);
}

// Check boxes

void BVItemDelegate::setCheckIndicatorAlignment(Qt::Alignment alignment)
{
    if (alignment == m_checkIndicatorAlignment)
        return;
    m_checkIndicatorAlignment = alignment;
    Q_EMIT sizeHintChanged(QModelIndex());
}

void BVItemDelegate::setCheckIndicatorMargins(const QMargins &margins)
{
    if (margins == m_checkIndicatorMargins)
        return;
    m_checkIndicatorMargins = margins;
    Q_EMIT sizeHintChanged(QModelIndex());
}

/// Whether the check box stands where the delegate says, not the style.
bool BVItemDelegate::placesCheckIndicator(const QStyleOptionViewItem &option) const
{
    return option.features & QStyleOptionViewItem::HasCheckIndicator &&
           (m_checkIndicatorAlignment != Qt::AlignLeft || !m_checkIndicatorMargins.isNull());
}

QRect BVItemDelegate::checkRect(const QStyleOptionViewItem &option) const
{
    const QSize size =
        styleOf(option)
            ->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, option.widget)
            .size();
    Qt::Alignment alignment = m_checkIndicatorAlignment;
    if (!(alignment & Qt::AlignHorizontal_Mask))
        alignment |= Qt::AlignLeft;
    if (!(alignment & Qt::AlignVertical_Mask))
        alignment |= Qt::AlignVCenter;
    return QStyle::alignedRect(option.direction, alignment, size,
                               option.rect.marginsRemoved(m_checkIndicatorMargins));
}

/// What the check box leaves of the cell for icon and text.
QRect BVItemDelegate::contentRect(const QStyleOptionViewItem &option) const
{
    const QRect check = checkRect(option).marginsAdded(m_checkIndicatorMargins);
    QRect rect = option.rect;
    if (check.center().x() > rect.center().x())
        rect.setRight(check.left() - 1);
    else
        rect.setLeft(check.right() + 1);
    return rect;
}

bool BVItemDelegate::editorEvent(QEvent *event, QAbstractItemModel *model,
                                 const QStyleOptionViewItem &option, const QModelIndex &index)
{
    const bool isMouse = event->type() == QEvent::MouseButtonPress ||
                         event->type() == QEvent::MouseButtonRelease ||
                         event->type() == QEvent::MouseButtonDblClick;
    QStyleOptionViewItem full = option;
    if (isMouse)
        initStyleOption(&full, index);
    if (!isMouse || !placesCheckIndicator(full))
        return QStyledItemDelegate::editorEvent(event, model, option, index);
    const auto *mouse = static_cast<QMouseEvent *>(event);
    if (!checkRect(full).contains(mouse->pos()))
        return false;
    // The toolkit expects the click where the style would have the check box.
    const QRect rect =
        styleOf(full)->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &full, full.widget);
    QMouseEvent moved(mouse->type(), rect.center(), mouse->button(), mouse->buttons(),
                      mouse->modifiers());
    return QStyledItemDelegate::editorEvent(&moved, model, option, index);
}

// Painting

QBrush BVItemDelegate::rowTint(const QModelIndex &index) const
{
    const bool isMarked = index.data(MarkedRole).toBool();
    if (!isMarked && !index.data(GroupHeaderRole).toBool())
        return Qt::NoBrush;
    QColor color = BVStatusColor::colors().forButtons(
        isMarked ? BVWidgetStatus::StandardChanged : BVWidgetStatus::Normal, false);
    color.setAlpha(isMarked ? s_markAlpha : s_headerAlpha);
    return color;
}

QSize BVItemDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    QSize size = QStyledItemDelegate::sizeHint(option, index);
    if (!m_checkIndicatorMargins.isNull() && index.data(Qt::CheckStateRole).isValid())
        size.rwidth() += m_checkIndicatorMargins.left() + m_checkIndicatorMargins.right();
    return size;
}

void BVItemDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                           const QModelIndex &index) const
{
    QStyleOptionViewItem full = option;
    initStyleOption(&full, index);
    if (!(full.state & QStyle::State_Selected))
        painter->fillRect(full.rect, rowTint(index));
    if (placesCheckIndicator(full)) {
        const QStyle *style = styleOf(full);
        style->drawPrimitive(QStyle::PE_PanelItemViewItem, &full, painter, full.widget);
        QStyleOptionViewItem check = full;
        check.rect = checkRect(full);
        check.state &= ~(QStyle::State_HasFocus | QStyle::State_MouseOver);
        check.state |= check.checkState == Qt::Checked     ? QStyle::State_On
                       : check.checkState == Qt::Unchecked ? QStyle::State_Off
                                                           : QStyle::State_NoChange;
        style->drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &check, painter, full.widget);
        full.rect = contentRect(full);
        full.features &= ~QStyleOptionViewItem::HasCheckIndicator;
    }
    paintContent(painter, full, index);
}

void BVItemDelegate::paintContent(QPainter *painter, QStyleOptionViewItem option,
                                  const QModelIndex &index) const
{
    const QStyle *style = styleOf(option);
    const QColor color = statusColor(option, index);
    if (!color.isValid()) {
        style->drawControl(QStyle::CE_ItemViewItem, &option, painter, option.widget);
        return;
    }
    // A style sheet would paint selected and hovered texts in its own colour.
    const QRect rect = style->subElementRect(QStyle::SE_ItemViewItemText, &option, option.widget);
    const QString text = std::exchange(option.text, QString());
    style->drawControl(QStyle::CE_ItemViewItem, &option, painter, option.widget);
    drawText(painter, option, rect, text, color);
}

bool BVItemDelegate::repaintsOnHover(const QModelIndex &index) const
{
    return m_repaintsOnHover && index.isValid();
}

// Editing

bool BVItemDelegate::isEditable(const QModelIndex &index) const
{
    constexpr Qt::ItemFlags needed = Qt::ItemIsEditable | Qt::ItemIsEnabled;
    return (index.flags() & needed) == needed &&
           !BVWidgetStatus::testFlag(getWidgetStatus(index), BVWidgetStatus::StandardLocked);
}

QWidget *BVItemDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                                      const QModelIndex &index) const
{
    if (!isEditable(index))
        return nullptr;
    if (!isNumber(index.data(Qt::EditRole)))
        return QStyledItemDelegate::createEditor(parent, option, index);
    auto *edit = new BVValueEdit(parent);
    edit->setFrame(false);
    edit->getFormatter()->copyFrom(formatterFor(index));
    return edit;
}

void BVItemDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    auto *edit = qobject_cast<BVValueEdit *>(editor);
    if (!edit) {
        QStyledItemDelegate::setEditorData(editor, index);
        return;
    }
    edit->setValue(index.data(Qt::EditRole).toDouble());
    edit->setProperty(s_cellValue, edit->value());
}

void BVItemDelegate::setModelData(QWidget *editor, QAbstractItemModel *model,
                                  const QModelIndex &index) const
{
    auto *edit = qobject_cast<BVValueEdit *>(editor);
    if (!edit) {
        QStyledItemDelegate::setModelData(editor, model, index);
        return;
    }
    edit->storeValue();
    if (edit->hasAcceptableInput() && edit->property(s_cellValue).toDouble() != edit->value())
        model->setData(index, edit->value(), Qt::EditRole);
}

/// The editor lies on the text, beside the check box wherever that is.
void BVItemDelegate::updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                                          const QModelIndex &index) const
{
    QStyleOptionViewItem full = option;
    initStyleOption(&full, index);
    if (!editor || !placesCheckIndicator(full)) {
        QStyledItemDelegate::updateEditorGeometry(editor, option, index);
        return;
    }
    full.rect = contentRect(full);
    full.features &= ~QStyleOptionViewItem::HasCheckIndicator;
    full.showDecorationSelected = true; // the width of the cell, not that of the text
    editor->setGeometry(
        styleOf(full)->subElementRect(QStyle::SE_ItemViewItemText, &full, full.widget));
}

void BVItemDelegate::provideContextMenuActions(const QModelIndex &, const QPoint &,
                                               QAbstractItemView *, QMenu *)
{
}

void BVItemDelegate::installLeftIconIndentationUpdateHandler(QTreeView *view)
{
    if (view)
        new IconIndentation(view); // child of the view
}
