#include "dialogs/frmslideshow.h"

#include "animatic/playlist.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>
#include <QtConcurrent>
#include <algorithm>

frmSlideshow::frmSlideshow(const Project& project, int startPane, QWidget* parent)
    : QDialog(parent), project_(project) {
    setObjectName(QStringLiteral("frmSlideshow"));
    setWindowTitle(QStringLiteral("Slideshow"));
    setCursor(Qt::BlankCursor);
    const QScreen* screen = parent && parent->screen() ? parent->screen() : QGuiApplication::primaryScreen();
    pictureSize_ = screen ? screen->size() * screen->devicePixelRatio() : QSize(1920, 1080);
    // The whole screen also where no window manager acts on the full-screen state.
    if (screen) setGeometry(screen->geometry());
    setWindowState(Qt::WindowFullScreen);

    // Without a single picture there is nothing to skip to: the blank panes are shown.
    panes_ = PlayedPanes(project_, false);
    if (panes_.isEmpty()) {
        blanks_ = true;
        panes_ = PlayedPanes(project_, true);
    }
    // The starting pane, or the first shown after it, or the last.
    const auto from = std::lower_bound(panes_.begin(), panes_.end(), startPane);
    index_ = from == panes_.end() ? int(panes_.size()) - 1 : int(from - panes_.begin());
    timer_.setInterval(kDefaultInterval);
    connect(&timer_, &QTimer::timeout, this, &frmSlideshow::Advance);
    prepareAround();
}

frmSlideshow::~frmSlideshow() {
    for (QFuture<OutputPicture>& f : prepared_)
        f.waitForFinished();
}

int frmSlideshow::CurrentPane() const {
    return panes_.isEmpty() ? 0 : panes_[index_];
}

QFuture<OutputPicture> frmSlideshow::pictureOf(int pane) {
    auto found = prepared_.find(pane);
    if (found != prepared_.end()) return *found;
    const Pane record = project_.Panes(pane);
    const QSize size = pictureSize_;
    return prepared_[pane] = QtConcurrent::run([record, size] { return LoadOutputPicture(record, size); });
}

void frmSlideshow::prepareAround() {
    if (panes_.isEmpty()) return;
    QList<int> keep;
    for (int i = qMax(0, index_ - 1); i <= qMin(int(panes_.size()) - 1, index_ + 1); ++i)
        keep << panes_[i];
    for (auto f = prepared_.begin(); f != prepared_.end();) {
        if (keep.contains(f.key())) {
            ++f;
        } else {
            f->waitForFinished();
            f = prepared_.erase(f);
        }
    }
    for (int pane : keep)
        pictureOf(pane);
}

Slide frmSlideshow::SlideOf(int pane) {
    Slide slide;
    slide.picture = pictureOf(pane).result();
    slide.caption = CaptionOf(project_.Panes(pane));
    slide.corner = QStringLiteral("pane %1 of %2").arg(pane).arg(qMin<int>(PaneTotal(project_), kMaxPane));
    return slide;
}

void frmSlideshow::showAt(int index) {
    if (panes_.isEmpty()) return;
    index_ = std::clamp(index, 0, int(panes_.size()) - 1);
    prepareAround();
    update();
}

void frmSlideshow::Advance() {
    if (index_ + 1 >= panes_.size()) {
        timer_.stop();
        return;
    }
    showAt(index_ + 1);
}

void frmSlideshow::setBlanks(bool blanks) {
    const QList<int> panes = PlayedPanes(project_, blanks);
    if (panes.isEmpty()) return;
    const int current = CurrentPane();
    blanks_ = blanks;
    panes_ = panes;
    // The pane shown stays; a blank one that is no longer shown gives way to the next picture.
    const auto at = std::lower_bound(panes_.begin(), panes_.end(), current);
    showAt(at == panes_.end() ? int(panes_.size()) - 1 : int(at - panes_.begin()));
}

void frmSlideshow::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Right:
    case Qt::Key_Space:
    case Qt::Key_PageDown:
        showAt(index_ + 1);
        break;
    case Qt::Key_Left:
    case Qt::Key_PageUp:
        showAt(index_ - 1);
        break;
    case Qt::Key_Home:
        showAt(0);
        break;
    case Qt::Key_End:
        showAt(int(panes_.size()) - 1);
        break;
    case Qt::Key_P:
        if (timer_.isActive())
            timer_.stop();
        else
            timer_.start();
        break;
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        timer_.setInterval(timer_.interval() + kIntervalStep);
        break;
    case Qt::Key_Minus:
        timer_.setInterval(qMax(kIntervalStep, timer_.interval() - kIntervalStep));
        break;
    case Qt::Key_B:
        setBlanks(!blanks_);
        break;
    default:
        QDialog::keyPressEvent(event); // Escape closes
    }
}

void frmSlideshow::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (panes_.isEmpty()) {
        painter.fillRect(rect(), Qt::black);
        return;
    }
    DrawSlide(painter, rect(), SlideOf(CurrentPane()));
}
