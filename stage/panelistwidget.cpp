#include "stage/panelistwidget.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>

void PaneListWidget::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        QListWidget::mousePressEvent(event);
    else
        event->accept();
    const QPoint at = event->position().toPoint();
    emit MouseDown(event->button(), event->modifiers(), at.x(), at.y());
}

QPoint PaneListWidget::currentItemPoint() const {
    const QRect item = visualRect(currentIndex());
    return item.isValid() ? item.center() : QPoint(0, 0);
}

void PaneListWidget::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier) {
        const QPoint at = currentItemPoint();
        emit MouseDown(Qt::RightButton, Qt::NoModifier, at.x(), at.y());
        return;
    }
    const int before = currentRow();
    QListWidget::keyPressEvent(event);
    if (currentRow() != before && currentRow() >= 0) {
        const QPoint at = currentItemPoint();
        emit MouseDown(Qt::LeftButton, event->modifiers(), at.x(), at.y());
    }
}

void PaneListWidget::contextMenuEvent(QContextMenuEvent* event) {
    // The right button's press has opened the menu already.
    if (event->reason() == QContextMenuEvent::Mouse) {
        event->ignore();
        return;
    }
    const QPoint at = currentItemPoint();
    emit MouseDown(Qt::RightButton, Qt::NoModifier, at.x(), at.y());
}
