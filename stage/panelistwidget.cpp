#include "stage/panelistwidget.h"

#include <QMouseEvent>

void PaneListWidget::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        QListWidget::mousePressEvent(event);
    else
        event->accept();
    const QPoint at = event->position().toPoint();
    emit MouseDown(event->button(), event->modifiers(), at.x(), at.y());
}
