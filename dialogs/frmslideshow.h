#pragma once

#include "animatic/slide.h"
#include "model/project.h"

#include <QDialog>
#include <QFuture>
#include <QMap>
#include <QTimer>

// The panes one at a time, full screen, in pane order from a starting pane. Right, Space and
// Page Down go on; Left and Page Up go back; Home and End; P plays and pauses; + and - change
// the pace by half a second; B shows or skips the panes without a picture; Escape ends.
class frmSlideshow : public QDialog {
    Q_OBJECT
public:
    frmSlideshow(const Project& project, int startPane, QWidget* parent = nullptr);
    ~frmSlideshow() override;

    static constexpr int kDefaultInterval = 2000; // milliseconds a pane while playing
    static constexpr int kIntervalStep = 500;

    int CurrentPane() const; // the pane shown, 0 when there is none
    bool Playing() const { return timer_.isActive(); }
    int Interval() const { return timer_.interval(); }
    bool ShowsBlanks() const { return blanks_; }
    // What the play timer does: the next pane, or a stop at the last.
    void Advance();
    // The slide as it is drawn, for a pane of the project.
    Slide SlideOf(int pane);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void showAt(int index);
    void setBlanks(bool blanks);
    // Starts loading the pictures of the panes around the one shown, drops the others.
    void prepareAround();
    QFuture<OutputPicture> pictureOf(int pane);

    const Project& project_;
    QList<int> panes_;
    int index_ = 0;
    bool blanks_ = false;
    QTimer timer_;
    QSize pictureSize_;
    QMap<int, QFuture<OutputPicture>> prepared_;
};
