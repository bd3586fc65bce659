// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QWidget>

#include <vector>

/// The widgets that wait to be re-polished at the next turn of the event loop.
class RepolishQueue : public QObject
{
    Q_OBJECT

public:
    /// The queue of the application; belongs to the application object.
    static RepolishQueue *instance();

    /// Lets @p widget wait, and what is inside it too when @p children is or was true.
    void add(QWidget *widget, bool children);
    /// Takes @p widget out, as it has just been re-polished. Keeps a request that asks for more
    /// than that: for what is inside it too, when @p children is false.
    void forget(QWidget *widget, bool children);

private:
    struct Request
    {
        QPointer<QWidget> widget;
        bool children = false;
    };

    explicit RepolishQueue(QObject *parent);

    Q_INVOKABLE void run();

    std::vector<Request> m_requests;  // in order of arrival
    QHash<QWidget *, size_t> m_index; // where a widget's request stands
};
