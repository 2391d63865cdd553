#include "stage/stageview.h"

#include <QAccessibleWidget>
#include <QMouseEvent>
#include <QPainter>

namespace {
class StageAccessible : public QAccessibleWidget {
public:
    explicit StageAccessible(StageView* stage) : QAccessibleWidget(stage, QAccessible::Canvas) {}
    QString text(QAccessible::Text t) const override {
        const auto* stage = static_cast<const StageView*>(widget());
        if (t == QAccessible::Description && stage->Describe) return stage->Describe();
        return QAccessibleWidget::text(t);
    }
};

QAccessibleInterface* stageAccessible(const QString& className, QObject* object) {
    if (className == QLatin1String("StageView") && object && object->isWidgetType())
        return new StageAccessible(static_cast<StageView*>(object));
    return nullptr;
}
} // namespace

StageView::StageView(QWidget* parent) : QWidget(parent) {
    static const bool factoryInstalled = (QAccessible::installFactory(stageAccessible), true);
    Q_UNUSED(factoryInstalled);
    setObjectName(QStringLiteral("picStage"));
    setAccessibleName(QStringLiteral("Board"));
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void StageView::NotifyDescriptionChanged() {
    QAccessibleEvent event(this, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&event);
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

void StageView::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Home:
    case Qt::Key_End:
        emit KeyDown(event->key(), event->modifiers());
        break;
    case Qt::Key_F10:
        if (event->modifiers() == Qt::ShiftModifier) {
            emit MenuKey();
            break;
        }
        [[fallthrough]];
    default:
        QWidget::keyPressEvent(event);
    }
}

void StageView::contextMenuEvent(QContextMenuEvent* event) {
    // The mouse's buttons are handled as presses and releases; only the keyboard's request is here.
    if (event->reason() == QContextMenuEvent::Mouse) {
        event->ignore();
        return;
    }
    emit MenuKey();
}

void StageView::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    // A click gives the focus too, but the click itself chooses its pane.
    if (event->reason() != Qt::MouseFocusReason && event->reason() != Qt::PopupFocusReason &&
        event->reason() != Qt::ActiveWindowFocusReason)
        emit KeyboardFocusIn();
    update();
}

void StageView::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    update();
}
