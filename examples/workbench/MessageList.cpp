// SPDX-License-Identifier: MIT
#include "MessageList.h"

#include "FieldEditor.h"
#include "SetupRemarks.h"
#include "SetupStack.h"

#include <SvgIcon.h>

namespace {

constexpr int s_mostMessages = 300;
constexpr int s_rows = 3; // in sight
const char *const s_icons[] = {"info", "warning", "error"};

QListWidgetItem *createRow(MessageList::Kind kind, const QString &text)
{
    const QString icon = QStringLiteral(":/Icons/%1.svg").arg(QLatin1String(s_icons[kind]));
    auto *row = new QListWidgetItem(createSvgIcon(icon), text);
    row->setToolTip(text);
    return row;
}

} // namespace

bool MessageList::Problem::operator==(const Problem &other) const
{
    return kind == other.kind && text == other.text && editor == other.editor;
}

MessageList::MessageList(SetupStack *form, QWidget *parent)
    : QListWidget(parent)
    , m_form(form)
{
    setAccessibleName(tr("Messages"));
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTextElideMode(Qt::ElideRight);
    setUniformItemSizes(true);
    connect(form, &SetupStack::changed, this, &MessageList::showProblems);
    connect(this, &QListWidget::itemActivated, this,
            [this](const QListWidgetItem *item) { goTo(row(item)); });
    showProblems();
}

void MessageList::addMessage(Kind kind, const QString &text)
{
    insertItem(problemCount(), createRow(kind, text));
    if (count() > problemCount() + s_mostMessages)
        delete takeItem(count() - 1);
}

std::vector<MessageList::Problem> MessageList::findProblems() const
{
    std::vector<Problem> problems;
    const QStringList names = m_form->fieldsNeedingInput();
    const std::vector<FieldEditor *> editors = m_form->editorsNeedingInput();
    for (size_t i = 0; i < editors.size(); ++i)
        problems.push_back({Error, tr("%1 needs input.").arg(names.value(int(i))), editors[i]});
    for (const SetupRemark &remark : SetupRemarks::of(m_form->setup()))
        problems.push_back({Warning, remark.text, m_form->editor(remark.field)});
    return problems;
}

void MessageList::showProblems()
{
    std::vector<Problem> problems = findProblems();
    if (problems == m_problems)
        return;
    for (int i = problemCount(); i > 0; --i)
        delete takeItem(0);
    m_problems = std::move(problems);
    for (int i = 0; i < problemCount(); ++i)
        insertItem(i, createRow(m_problems[size_t(i)].kind, m_problems[size_t(i)].text));
    scrollToTop();
}

void MessageList::goTo(int row)
{
    FieldEditor *editor =
        row >= 0 && row < problemCount() ? m_problems[size_t(row)].editor.data() : nullptr;
    if (!editor)
        return;
    m_form->showPageOf(editor->edit());
    editor->edit()->setFocus(Qt::OtherFocusReason);
    editor->selectAll();
}

QSize MessageList::sizeHint() const
{
    const int rowHeight = count() > 0 ? sizeHintForRow(0) : fontMetrics().height();
    return QSize(QListWidget::sizeHint().width(), s_rows * rowHeight + 2 * frameWidth());
}
