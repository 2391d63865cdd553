#include "stage/stageview.h"

#include <QMouseEvent>
#include <QPainter>

StageView::StageView(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("picStage"));
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void StageView::EnsurePictureSize(int w, int h) {
    if (!Picture.isNull() && Picture.width() >= w && Picture.height() >= h) return;
    QImage grown(qMax(w, Picture.width()), qMax(h, Picture.height()), QImage::Format_RGB32);
    grown.fill(BackColor());
    if (!Picture.isNull()) {
        QPainter p(&grown);
        p.drawImage(0, 0, Picture);
    }
    Picture = grown;
}

void StageView::ClearPicture() {
    Picture = QImage();
    update();
}

void StageView::SetLine(const LineShape& line) {
    Line1 = line;
    update();
}

void StageView::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.fillRect(rect(), BackColor());
    if (!Picture.isNull()) p.drawImage(0, 0, Picture);
    if (Line1.Visible) {
        p.setPen(QPen(Line1.BorderColor, 1));
        p.drawLine(Line1.X1, Line1.Y1, Line1.X2, Line1.Y2);
    }
}

void StageView::mousePressEvent(QMouseEvent* event) {
    const QPoint pos = event->position().toPoint();
    emit MouseDown(event->button(), event->modifiers(), pos.x(), pos.y());
}

void StageView::mouseMoveEvent(QMouseEvent* event) {
    const QPoint pos = event->position().toPoint();
    emit MouseMove(event->buttons(), event->modifiers(), pos.x(), pos.y());
}

void StageView::mouseReleaseEvent(QMouseEvent* event) {
    const QPoint pos = event->position().toPoint();
    emit MouseUp(event->button(), event->modifiers(), pos.x(), pos.y());
}
