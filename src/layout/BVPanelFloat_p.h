// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPointer>
#include <QRect>
#include <QVector>

#include <memory>

class MainWidget;
class QWidget;

/// The time that a panel spends out of its layout: the main widget that it floats in, and the place
/// holder that keeps its place.
///
/// The panel is shown and enabled as the place is. When the place is deleted, so is the panel; when
/// the panel is deleted, the place and the main widget go.
class BVPanelFloat : public QObject
{
    Q_OBJECT

public:
    /// Takes the panel out of its layout. Null, with nothing changed, where its place cannot be
    /// kept.
    static std::unique_ptr<BVPanelFloat> leave(QWidget *panel);
    ~BVPanelFloat() override;

    /// Puts the panel back in its place; only to be deleted after that.
    void comeBack();

    /// Null only after comeBack().
    MainWidget *mainWidget() const;
    /// The place in the coordinates of the window.
    QRect placeRect() const;

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    /// The place has come into another window.
    void sigWindowChanged();

private:
    BVPanelFloat(QWidget *panel, QWidget *window);
    void watch(QObject *object);
    void watchAncestors();
    void unwatchAll();
    void onPlaceDestroyed();
    void onAncestorMoved();
    void syncWithPlace();

    QWidget *m_panel;
    QWidget *m_place = nullptr; // null once it is being deleted
    MainWidget *m_mainWidget;   // likewise
    QVector<QPointer<QObject>> m_watched;
};
