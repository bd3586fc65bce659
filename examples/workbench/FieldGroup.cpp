// SPDX-License-Identifier: MIT
#include "FieldGroup.h"

#include "FieldSlider.h"
#include "SetupFields.h"
#include "SpinField.h"
#include "TextField.h"
#include "ValueField.h"

#include <BVLabel.h>
#include <BVSlider.h>
#include <BVStatusBatch.h>
#include <BVWidgetStatusHandler.h>

#include <QEvent>
#include <QGridLayout>
#include <QTimer>

#include <algorithm>

namespace {

/// An edit without a slider takes both of the last columns.
enum Column { LabelColumn, SymbolColumn, SliderColumn, EditColumn };

constexpr int s_boxMargin = 9;      // px, inside the box
constexpr int s_titleHeight = 16;   // px, for which the sheets leave room
constexpr int s_rowSpacing = 5;     // px
constexpr int s_columnSpacing = 10; // px
constexpr int s_sliderWidth = 70;   // px, at least
constexpr int s_symbolWidth = 2;    // characters
/// As wide as a label gets, so that the edits of all pages stand at the same place.
const QString s_widestLabel = QStringLiteral("Hardening coefficient");
/// As wide as a value gets in any unit that can be chosen.
const QString s_widestValue = QStringLiteral("00000000.00 N/mm\u00b2");
/// The same for the few quantities that have sliders.
const QString s_widestBesideSlider = QStringLiteral("0000000000 mm/s");

FieldEditor *createEditor(const SetupField &field, int index, QWidget *parent)
{
    if (field.kind == SetupField::Text)
        return new TextField(field, index, parent);
    if (field.spinStep > 0.0)
        return new SpinField(field, index, parent);
    return new ValueField(field, index, parent);
}

/// The slider of a field; null for none.
QWidget *createSlider(FieldEditor *editor, QWidget *parent)
{
    const SetupSlider *definition = SetupFields::slider(editor->field());
    auto *number = qobject_cast<NumberField *>(editor);
    if (!definition || !number)
        return nullptr;
    QWidget *slider = (new FieldSlider(*definition, number, parent))->slider();
    QWidget::setTabOrder(slider, editor->edit());
    return slider;
}

} // namespace

FieldGroup::FieldGroup(const QString &title, const std::vector<SetupField> &fields, int group,
                       QWidget *parent)
    : QGroupBox(title, parent)
    , m_layout(new QGridLayout(this))
{
    auto *handler = new BVWidgetStatusHandler(this);
    connect(handler, &BVWidgetStatusHandler::childStatusChanged, this,
            &FieldGroup::onFieldStatusChanged);
    m_layout->setHorizontalSpacing(s_columnSpacing);
    m_layout->setVerticalSpacing(s_rowSpacing);
    m_layout->setColumnStretch(SliderColumn, 1);
    for (size_t i = 0; i < fields.size(); ++i) {
        if (fields[i].group != group)
            continue;
        addField(fields[i], int(i));
        handler->attach(m_editors.back()->edit());
    }
    load(FieldValues(fields.size()));
    handler->updateParentStatus();
    alignColumns();
}

void FieldGroup::addField(const SetupField &field, int index)
{
    FieldEditor *editor = createEditor(field, index, this);
    m_editors.push_back(editor);
    connect(editor, &FieldEditor::edited, this, &FieldGroup::changed);

    auto *label = new BVLabel(field.labelText(), this);
    label->setBuddy(editor->edit());
    label->setToolTip(editor->edit()->toolTip());
    m_labels.push_back(label);
    auto *symbol = new BVLabel(QString::fromUtf8(field.symbol), this);
    editor->edit()->setAccessibleName(field.labelText());
    editor->edit()->setObjectName(field.keyText());

    const int row = m_layout->rowCount();
    m_layout->addWidget(label, row, LabelColumn);
    m_layout->addWidget(symbol, row, SymbolColumn, Qt::AlignRight | Qt::AlignVCenter);
    QWidget *slider = createSlider(editor, this);
    if (slider)
        m_layout->addWidget(slider, row, SliderColumn);
    m_layout->addWidget(editor->edit(), row, slider ? EditColumn : SliderColumn, 1, slider ? 1 : 2);
    m_sliders.push_back(slider);
}

void FieldGroup::load(const FieldValues &values)
{
    const BVStatusBatch batch;
    for (FieldEditor *editor : m_editors)
        editor->load(values);
}

void FieldGroup::store(FieldValues &values) const
{
    for (const FieldEditor *editor : m_editors)
        editor->store(values);
}

void FieldGroup::acceptAsReference()
{
    for (FieldEditor *editor : m_editors)
        editor->acceptAsReference();
}

void FieldGroup::reset()
{
    for (FieldEditor *editor : m_editors)
        editor->reset();
}

void FieldGroup::takeOver()
{
    for (FieldEditor *editor : m_editors)
        editor->takeOver();
}

bool FieldGroup::isChanged() const
{
    return std::any_of(m_editors.begin(), m_editors.end(),
                       [](const FieldEditor *editor) { return editor->isChanged(); });
}

QStringList FieldGroup::fieldsNeedingInput() const
{
    QStringList labels;
    for (const FieldEditor *editor : m_editors) {
        if (isEnabled() && editor->needsInput())
            labels << editor->field().labelText();
    }
    return labels;
}

void FieldGroup::focusNextNeedingInput()
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

void FieldGroup::changeEvent(QEvent *event)
{
    QGroupBox::changeEvent(event);
    if (event->type() == QEvent::StyleChange || event->type() == QEvent::FontChange)
        alignColumns();
}

void FieldGroup::onFieldStatusChanged(QWidget *edit, BVWidgetStatus::Stati)
{
    for (FieldEditor *editor : m_editors) {
        // Later: the edit is still telling the others about this change.
        if (editor->edit() == edit)
            QTimer::singleShot(0, editor, &FieldEditor::updateStatus);
    }
    Q_EMIT changed();
}

/// Lets the columns of all groups begin at the same place, and keeps the rows with sliders low.
void FieldGroup::alignColumns()
{
    if (m_labels.empty())
        return;
    m_labels.front()->ensurePolished();
    const QFontMetrics metrics = m_labels.front()->fontMetrics();
    const int editWidth = metrics.horizontalAdvance(s_widestBesideSlider);
    const int wholeWidth = metrics.horizontalAdvance(s_widestValue);
    const int sliderWidth = std::max(s_sliderWidth, wholeWidth - s_columnSpacing - editWidth);
    const int top = s_boxMargin + std::max(0, metrics.height() - s_titleHeight);
    m_layout->setContentsMargins(s_boxMargin, top, s_boxMargin, s_boxMargin);
    m_layout->setColumnMinimumWidth(LabelColumn, metrics.horizontalAdvance(s_widestLabel));
    m_layout->setColumnMinimumWidth(SymbolColumn, s_symbolWidth * metrics.averageCharWidth());
    m_layout->setColumnMinimumWidth(SliderColumn, sliderWidth);
    m_layout->setColumnMinimumWidth(EditColumn, editWidth);
    for (size_t i = 0; i < m_sliders.size(); ++i) {
        if (!m_sliders[i])
            continue;
        QWidget *edit = m_editors[i]->edit();
        edit->setMaximumWidth(editWidth);
        m_sliders[i]->setMaximumHeight(edit->sizeHint().height() + 2 * s_rowSpacing);
    }
}
