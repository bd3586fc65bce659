// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include <array>

class QHBoxLayout;
class QToolButton;

/// A strip of flat buttons for the rows of a list: those that each list has, then those of the
/// application.
class BVListToolBar : public QWidget
{
    Q_OBJECT

public:
    enum Command { MoveUp, MoveDown, Rename, Remove, CommandCount };

    explicit BVListToolBar(QWidget *parent);

    QAction *command(Command command) const { return m_commands[command]; }
    /// In front of the button of another action, or at the end.
    void addButton(QAction *action, QAction *before = nullptr);
    void removeButton(QAction *action);

private:
    QToolButton *buttonOf(const QAction *action) const;

    QHBoxLayout *m_layout;
    std::array<QAction *, CommandCount> m_commands{}; // children of this
};
