#pragma once

#include <QListWidget>

// The pane list `List1`. It reports a mouse press after the list has taken the left button's
// selection; any other button leaves the selection alone (it opens the list's pop-up menu).
class PaneListWidget : public QListWidget {
    Q_OBJECT
public:
    using QListWidget::QListWidget;

signals:
    void MouseDown(Qt::MouseButton button, Qt::KeyboardModifiers shift, int x, int y);

protected:
    void mousePressEvent(QMouseEvent* event) override;
};
