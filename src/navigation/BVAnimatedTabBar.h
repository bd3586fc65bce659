// SPDX-License-Identifier: MIT
#pragma once

#include "BVWidgetsExport.h"

#include "foundation/BVWidgetInterface.h"
#include "foundation/BVWidgetStatus.h"
#include "foundation/NavigationInterface.h"

#include <QList>
#include <QMap>
#include <QPair>
#include <QString>
#include <QVariant>
#include <QWidget>

#include <functional>
#include <memory>

class BVTabBarParts;
class QIcon;
class QMenu;
class QToolButton;

/// A tab bar that paints itself: gradient tabs with a status, an icon, a close and a menu button
/// each, a picture after each tab, and room for tool buttons at its end.
///
/// **Tabs.** The first tab becomes the current one, and when the current tab is removed the next
/// enabled one does, else the one before it. currentChanged() tells that another tab is current,
/// not that tabs before it came or went. An index out of range is ignored by setters; getters
/// answer an empty text, an invalid value, an empty rectangle or -1; insertTab() then appends.
///
/// **Looks.** The bar is three pixels higher than its tabs, and these follow the font, whose size
/// the style sheets set; buttons of at least 22 pixels fit. A status shows as a dot in its colour,
/// which is part of what assistive technology hears. The marked tab has a bar along its lower edge.
/// Dark tabs have light text, and the bar draws a light cross and light menu arrows of its own on
/// them; an icon is shown as it is, but that of an operation's state gets light. A tab's own image
/// stands in for the bar's image after tabs; a dark tab prefers its dark-style image. Images after
/// tabs point along the reading direction; mirroring flips them.
///
/// **Room.** When the tabs do not fit, the shorter forms of their texts are tried, if the bar knows
/// any, until one fits for all; then the longest texts are elided, to a few letters at most; then
/// the tabs scroll, with an arrow at each end behind which there are more. The current tab is kept
/// in sight. A shortened text is shown in full as tool tip, above the tab's own tip.
///
/// **Pointer.** Pressing a tab makes it current, unless it is disabled. A tab's menu button works
/// only on the current tab: 100 ms after the press menuButtonClicked() asks for the menu, which
/// showMenu() opens, unless the bar or the button cannot be used any more. A disabled tab's buttons
/// work while it is the current one. A press that is released off its tab, or during which a dialog
/// opens, even one that a slot of currentChanged() shows, asks neither to close the tab nor for its
/// menu. Dragging a pressed pointer past an end of the tabs scrolls them. The wheel changes the
/// current tab while the bar has the focus and never wraps; without focus it is left to the page. A
/// double click on a tab's button counts as two presses of it and emits no doubleClicked(). The
/// tool tip comes after the style's usual delay, in the active window only, and not after a press
/// or a key until the pointer comes to another tab.
///
/// **Keyboard.** The arrows, Home and End choose among the enabled tabs, Delete asks to close the
/// current tab, the menu key or Alt+Down asks for its menu; a key held down asks once.
///
/// **Motion.** Hovering, selecting and new tabs fade for less than 150 ms, not at all where the
/// style has animations off. Nothing is laid out before it is asked for or painted, so tabs that
/// come together are laid out together.
class BVWIDGETS_EXPORT BVAnimatedTabBar :
    public QWidget,
    public BVWidgetInterface,
    public NavigationInterface
{
    Q_OBJECT
    Q_PROPERTY(int count READ count)
    Q_PROPERTY(int currentIndex READ currentIndex WRITE setCurrentIndex NOTIFY currentChanged)
    Q_PROPERTY(int markedIndex READ markedIndex WRITE setMarkedIndex NOTIFY markedChanged)
    Q_PROPERTY(QString imageAfterTabs READ imageAfterTabs WRITE setImageAfterTabs)
    Q_PROPERTY(
        bool imageAfterTabsMirrored READ isImageAfterTabsMirrored WRITE setImageAfterTabsMirrored)
    Q_PROPERTY(bool hideTabBarForOne READ isHideTabBarForOne WRITE setHideTabBarForOne)

public:
    explicit BVAnimatedTabBar(QWidget *parent = nullptr);
    ~BVAnimatedTabBar() override;

    /// Append tabs and answer the index of the (first) new one. With @p data, each tab gets the
    /// value at its place for the default role; missing ones stay invalid. The first tab of an
    /// empty bar becomes current once all stand with their values.
    int addTab(const QString &text, const QString &toolTip = QString());
    void addTabs(const QList<QString> &texts);
    /// Texts with their tool tips.
    void addTabs(const QList<QPair<QString, QString>> &texts);
    void addTabs(const QList<QString> &texts, const QList<QVariant> &data);
    /// Answer the index that the tab got.
    int insertTab(int index, const QString &text);
    int insertTab(int index, const QString &text, const QString &toolTip);
    void removeTab(int index);
    void clearTabs();
    int count() const;

    /// Adds a flat BVButton at the end of the bar, which owns it. The text is its tool tip and
    /// accessible name, and shows where there is no icon.
    QToolButton *addButton(const QIcon &icon, const QString &text);

    /// -1 for no tab.
    int currentIndex() const override;
    /// Makes any tab current, also a disabled one.
    void setCurrentIndex(int index) override;
    /// Makes no tab current, until one is pressed, set or added. Tells currentChanged(-1).
    void clearCurrentIndex();
    /// -1 for no tab.
    int markedIndex() const;
    /// Marks one tab; -1 marks none.
    void setMarkedIndex(int index);

    bool isTabEnabled(int index) const;
    void setTabEnabled(int index, bool enabled);
    BVWidgetStatus::Status getWidgetStatus(int index) const;
    void setWidgetStatus(int index, BVWidgetStatus::Status status);
    QString getItemText(int index) const;
    void setItemText(int index, const QString &text) override;
    QString getItemToolTip(int index) const;
    void setItemToolTip(int index, const QString &toolTip) override;
    QVariant data(int index, int role) const;
    void setData(int index, const QVariant &value, int role = Qt::UserRole);
    /// The data of the default role, Qt::UserRole.
    QVariant tabData(int index) const;

    /// Files of scalable pictures; an empty name shows none.
    QString iconUrl(int index) const;
    void setIconUrl(int index, const QString &url);
    QString imageUrl(int index) const;
    void setImageUrl(int index, const QString &url);
    bool isDarkStyle(int index) const;
    void setDarkStyle(int index, bool dark);
    QString darkStyleImageUrl(int index) const;
    void setDarkStyleImageUrl(int index, const QString &url);
    QString imageAfterTabs() const;
    void setImageAfterTabs(const QString &url);
    bool isImageAfterTabsMirrored() const;
    void setImageAfterTabsMirrored(bool mirrored);
    void setNoImageAfterTab(int index, bool noImage);

    /// Whether the bar hides itself while it has fewer than two tabs.
    bool isHideTabBarForOne() const;
    void setHideTabBarForOne(bool hide);

    bool hasCloseButton(int index) const;
    void useCloseButton(int index, bool use);
    /// For the tabs there are and for those to come.
    void useCloseButtons(bool use);
    bool hasMenuButton(int index) const;
    void useMenuButton(int index, bool use);
    /// Opens the menu at the bottom left corner of the tab's menu button, bottom right in
    /// right-to-left layout, and returns when it has closed. Nothing for a tab without that button
    /// or while another menu is open. The menu closes when the tab, its button or the bar goes,
    /// is hidden or the bar disabled. The bar and the menu may be deleted meanwhile.
    void showMenu(int index, QMenu &menu);

    /// The tab at a point of the screen; -1 where there is none.
    int getIndexAtPosition(const QPoint &global) const;
    /// Where the tab stands on the bar, also if it is scrolled out of sight.
    QRect getTabRect(int index) const;
    /// The middle of the tab, on the bar or on the screen; a null point if there is none. The first
    /// tab with the text counts.
    QPoint getTabCoordinates(int index) const;
    QPoint getTabCoordinates(const QString &name) const;
    QPoint getTabCoordinatesMappedToGlobal(const QString &name) const;

    /// Room for all texts in full.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    void setVisible(bool visible) override;

Q_SIGNALS:
    void currentChanged(int index);
    void markedChanged(int index);
    void doubleClicked(int index);
    /// The user asks to close the tab. The bar leaves it to the receiver to remove it.
    void closeButtonClicked(int index);
    /// The user asks for the tab's menu; call showMenu().
    void menuButtonClicked(int index);

public Q_SLOTS:
    /// The pointer is over another tab; -1 for none.
    void onHoveredIndexChanged(int index);
    /// Shows the tool tip of the hovered tab, if it has one.
    void onShowToolTip();

protected:
    /// Fills in shorter forms of a tab's text: levels from 0, the full text, on without a gap.
    /// A text with fewer levels than others keeps its last form.
    using TextReducing = std::function<void(QMap<int, QString> &, const QString &)>;
    /// With no function, texts are only elided.
    void setTextReducing(const TextReducing &reducing);
    /// Sets the icon for bright tabs, the one for dark tabs and what assistive technology hears of
    /// it. With no icon for dark tabs these show the shape of the other in a bright colour.
    void setIcon(int index, const QString &url, const QString &darkUrl, const QString &text);

    using BVWidgetInterface::getStatusWidget;
    /// The tabs have no widgets of their own: null.
    QWidget *getStatusWidget(int index) const override;

    bool event(QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    friend class BVTabBarAccessible;

    void hideOrShow();
    void onTabsChanged();
    void onTabsInserted(int first, int inserted);
    void onTabsRemoved(bool isOtherCurrent, bool isOtherMarked);
    void endInput();
    void cancelInput();

    const std::unique_ptr<BVTabBarParts> m_parts;
};
