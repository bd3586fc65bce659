// SPDX-License-Identifier: MIT
#include "SetupForm.h"

#include "FieldSlider.h"
#include "SetupFields.h"
#include "SpinField.h"
#include "TextField.h"
#include "ValueField.h"

#include <BVLabel.h>
#include <BVSlider.h>
#include <BVStatusBatch.h>
#include <BVWidgetStatusHandler.h>

#include <QBoxLayout>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QTimer>

#include <algorithm>

namespace {

/// An edit without a slider takes both of the last columns.
enum Column { LabelColumn, SymbolColumn, SliderColumn, EditColumn };

constexpr int s_columnCount = 2;
constexpr int s_spacing = 12;       // px, between the boxes
constexpr int s_boxMargin = 9;      // px, inside the boxes
constexpr int s_titleHeight = 16;   // px, for which the sheets leave room
constexpr int s_rowSpacing = 5;     // px
constexpr int s_columnSpacing = 10; // px
constexpr int s_maximumWidth = 560; // px, of one column
constexpr int s_sliderWidth = 70;   // px, at least
/// As wide as a value gets in any unit that can be chosen.
const QString s_widestValue = QStringLiteral("00000000.00 N/mm\u00b2");
/// The same for the few quantities that have sliders.
const QString s_widestBesideSlider = QStringLiteral("0000000000 mm/s");

int widest(const std::vector<BVLabel *> &labels)
{
    int width = 0;
    for (BVLabel *label : labels) {
        label->ensurePolished();
        width = std::max(width, label->sizeHint().width());
    }
    return width;
}

FieldEditor *createEditor(int index, QWidget *parent)
{
    const SetupField &field = SetupFields::field(index);
    if (field.kind == SetupField::Text)
        return new TextField(index, parent);
    if (field.spinStep > 0.0)
        return new SpinField(index, parent);
    return new ValueField(index, parent);
}

/// The slider of a field; null for none.
QWidget *createSlider(FieldEditor *editor, QWidget *parent)
{
    const SetupSlider *definition = SetupFields::slider(editor->index());
    auto *number = qobject_cast<NumberField *>(editor);
    if (!definition || !number)
        return nullptr;
    QWidget *slider = (new FieldSlider(*definition, number, parent))->slider();
    QWidget::setTabOrder(slider, editor->edit());
    return slider;
}

} // namespace

SetupForm::SetupForm(QWidget *parent)
    : QWidget(parent)
    , m_columns(new QBoxLayout(QBoxLayout::LeftToRight, this))
    , m_editors(SetupFields::fields().size())
    , m_sliders(SetupFields::fields().size())
{
    setObjectName(QStringLiteral("setupForm"));
    m_columns->setContentsMargins(s_spacing, s_spacing, s_spacing, s_spacing);
    m_columns->setSpacing(s_spacing);
    QVBoxLayout *columns[s_columnCount];
    for (QVBoxLayout *&column : columns) {
        auto *holder = new QWidget(this);
        holder->setMaximumWidth(s_maximumWidth);
        column = new QVBoxLayout(holder);
        column->setContentsMargins(0, 0, 0, 0);
        column->setSpacing(s_spacing);
        m_columns->addWidget(holder, 1, Qt::AlignTop);
        m_columnHolders.push_back(holder);
    }
    m_columns->addStretch();
    auto *handler = new BVWidgetStatusHandler(this);
    for (size_t i = 0; i < SetupFields::groups().size(); ++i) {
        QGroupBox *box = createGroup(int(i));
        columns[SetupFields::groups()[i].column]->addWidget(box);
        handler->attach(box);
    }
    handler->updateParentStatus();
    setSetup(ProcessSetup());
    alignColumns();
}

SetupForm::~SetupForm() = default;

QGroupBox *SetupForm::createGroup(int group)
{
    auto *box = new QGroupBox(SetupFields::translated(SetupFields::groups()[size_t(group)].title));
    auto *handler = new BVWidgetStatusHandler(box);
    connect(handler, &BVWidgetStatusHandler::childStatusChanged, this,
            &SetupForm::onFieldStatusChanged);
    auto *layout = new QGridLayout(box);
    layout->setHorizontalSpacing(s_columnSpacing);
    layout->setVerticalSpacing(s_rowSpacing);
    layout->setColumnStretch(SliderColumn, 1);
    for (int i = 0; i < SetupFields::count(); ++i) {
        if (SetupFields::field(i).group != group)
            continue;
        addField(layout, box, i);
        handler->attach(m_editors[size_t(i)]->edit());
    }
    handler->updateParentStatus();
    m_groups.push_back(box);
    m_layouts.push_back(layout);
    return box;
}

void SetupForm::addField(QGridLayout *layout, QGroupBox *box, int index)
{
    const SetupField &field = SetupFields::field(index);
    FieldEditor *editor = createEditor(index, box);
    m_editors[size_t(index)] = editor;
    connect(editor, &FieldEditor::edited, this, &SetupForm::changed);

    auto *label = new BVLabel(field.labelText(), box);
    label->setBuddy(editor->edit());
    label->setToolTip(editor->edit()->toolTip());
    m_labels.push_back(label);
    auto *symbol = new BVLabel(QString::fromUtf8(field.symbol), box);
    m_symbols.push_back(symbol);
    editor->edit()->setAccessibleName(field.labelText());
    editor->edit()->setObjectName(field.keyText());

    const int row = layout->rowCount();
    layout->addWidget(label, row, LabelColumn);
    layout->addWidget(symbol, row, SymbolColumn, Qt::AlignRight | Qt::AlignVCenter);
    QWidget *slider = createSlider(editor, box);
    if (slider)
        layout->addWidget(slider, row, SliderColumn);
    layout->addWidget(editor->edit(), row, slider ? EditColumn : SliderColumn, 1, slider ? 1 : 2);
    m_sliders[size_t(index)] = slider;
}

void SetupForm::setSetup(const ProcessSetup &setup)
{
    const BVStatusBatch batch;
    m_setup = setup;
    for (FieldEditor *editor : m_editors)
        editor->load(setup);
    Q_EMIT changed();
}

ProcessSetup SetupForm::setup() const
{
    ProcessSetup result = m_setup;
    for (const FieldEditor *editor : m_editors)
        editor->store(result);
    return result;
}

void SetupForm::acceptAsReference()
{
    const BVStatusBatch batch;
    for (FieldEditor *editor : m_editors)
        editor->acceptAsReference();
    Q_EMIT changed();
}

void SetupForm::resetToReference()
{
    const BVStatusBatch batch;
    for (FieldEditor *editor : m_editors)
        editor->reset();
    Q_EMIT changed();
}

void SetupForm::takeOver()
{
    for (FieldEditor *editor : m_editors)
        editor->takeOver();
}

bool SetupForm::isChanged() const
{
    return std::any_of(m_editors.begin(), m_editors.end(),
                       [](const FieldEditor *editor) { return editor->isChanged(); });
}

QStringList SetupForm::fieldsNeedingInput() const
{
    QStringList labels;
    for (const FieldEditor *editor : m_editors) {
        if (editor->needsInput())
            labels << SetupFields::field(editor->index()).labelText();
    }
    return labels;
}

void SetupForm::focusNextNeedingInput()
{
    const auto focused =
        std::find_if(m_editors.begin(), m_editors.end(),
                     [](const FieldEditor *editor) { return editor->edit()->hasFocus(); });
    const auto needsInput = [](const FieldEditor *editor) { return editor->needsInput(); };
    auto next = m_editors.end();
    if (focused != m_editors.end())
        next = std::find_if(focused + 1, m_editors.end(), needsInput);
    if (next == m_editors.end())
        next = std::find_if(m_editors.begin(), m_editors.end(), needsInput);
    if (next == m_editors.end())
        return;
    (*next)->edit()->setFocus(Qt::ShortcutFocusReason);
    (*next)->selectAll();
}

QSize SetupForm::minimumSizeHint() const
{
    int width = 0;
    for (const QWidget *holder : m_columnHolders)
        width = std::max(width, holder->minimumSizeHint().width());
    return QSize(width + 2 * s_spacing, sizeHint().height());
}

void SetupForm::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::StyleChange || event->type() == QEvent::FontChange) {
        alignColumns();
        arrangeColumns();
    }
}

void SetupForm::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    arrangeColumns();
}

void SetupForm::onFieldStatusChanged(QWidget *edit, BVWidgetStatus::Stati)
{
    for (FieldEditor *editor : m_editors) {
        // Later: the edit is still telling the others about this change.
        if (editor->edit() == edit)
            QTimer::singleShot(0, editor, &FieldEditor::updateStatus);
    }
    Q_EMIT changed();
}

/// Lets the columns of all boxes begin at the same place, and keeps the rows with sliders low.
void SetupForm::alignColumns()
{
    const int labelWidth = widest(m_labels);
    const int symbolWidth = widest(m_symbols);
    const QFontMetrics metrics = m_labels.front()->fontMetrics();
    const int editWidth = metrics.horizontalAdvance(s_widestBesideSlider);
    const int wholeWidth = metrics.horizontalAdvance(s_widestValue);
    const int sliderWidth = std::max(s_sliderWidth, wholeWidth - s_columnSpacing - editWidth);
    const int top = s_boxMargin + std::max(0, metrics.height() - s_titleHeight);
    for (QGridLayout *layout : m_layouts) {
        layout->setContentsMargins(s_boxMargin, top, s_boxMargin, s_boxMargin);
        layout->setColumnMinimumWidth(LabelColumn, labelWidth);
        layout->setColumnMinimumWidth(SymbolColumn, symbolWidth);
        layout->setColumnMinimumWidth(SliderColumn, sliderWidth);
        layout->setColumnMinimumWidth(EditColumn, editWidth);
    }
    for (size_t i = 0; i < m_sliders.size(); ++i) {
        if (!m_sliders[i])
            continue;
        QWidget *edit = m_editors[i]->edit();
        edit->setMaximumWidth(editWidth);
        m_sliders[i]->setMaximumHeight(edit->sizeHint().height() + 2 * s_rowSpacing);
    }
}

/// Puts the columns below each other where they have no room beside each other.
void SetupForm::arrangeColumns()
{
    int needed = s_spacing;
    for (const QWidget *holder : m_columnHolders)
        needed += holder->minimumSizeHint().width() + s_spacing;
    m_columns->setDirection(width() < needed ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
}
