#pragma once

#include <QListWidget>

// The pane list `List1`. It reports a mouse press after the list has taken the left button's
// selection; any other button leaves the selection alone (it opens the list's pop-up menu).
// The keyboard is reported as the mouse would be: a key that moves the selection as a left
// press on the new item, the Menu key and Shift+F10 as a right press on the current item.
class PaneListWidget : public QListWidget {
    Q_OBJECT
public:
    using QListWidget::QListWidget;

signals:
    void MouseDown(Qt::MouseButton button, Qt::KeyboardModifiers shift, int x, int y);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    // Where a press on the current item lands, in the viewport's pixels.
    QPoint currentItemPoint() const;
};
