#pragma once

#include <QColor>
#include <QImage>
#include <QPoint>
#include <QWidget>
#include <functional>

// The stage `picStage`: a canvas that shows its persistent picture, with the drag line `Line1`
// laid over it, and that reports its mouse events in pixels to the main window. It takes the
// keyboard focus too and reports the keys that choose panes; to assistive technologies it is
// "Board", described by what Describe tells of the selected pane.
class StageView : public QWidget {
    Q_OBJECT
public:
    explicit StageView(QWidget* parent = nullptr);

    // The line shape drawn over the stage while a pane is dragged.
    struct LineShape {
        bool Visible = false;
        int X1 = 0, Y1 = 0, X2 = 0, Y2 = 0;
        QColor BorderColor = QColor(0, 255, 0);
    };

    // What the stage shows; drawing goes into it and repaint() puts it on screen.
    QImage Picture;
    LineShape Line1;

    // Makes the picture at least w x h, keeping what is drawn (new area takes the back colour).
    void EnsurePictureSize(int w, int h);
    // Empties the persistent picture (the stage then shows its back colour).
    void ClearPicture();
    void SetLine(const LineShape& line);

    static QColor BackColor() { return QColor(128, 128, 128); }

    // The accessible description: the selected pane, asked for whenever it is read.
    std::function<QString()> Describe;
    // Tells assistive technologies that the description has changed.
    void NotifyDescriptionChanged();

signals:
    void MouseDown(Qt::MouseButton button, Qt::KeyboardModifiers shift, int x, int y);
    void MouseMove(Qt::MouseButtons buttons, Qt::KeyboardModifiers shift, int x, int y);
    void MouseUp(Qt::MouseButton button, Qt::KeyboardModifiers shift, int x, int y);
    // An arrow key, Home or End.
    void KeyDown(int key, Qt::KeyboardModifiers shift);
    // The Menu key or Shift+F10.
    void MenuKey();
    // The focus came from the keyboard (Tab, Shift+Tab, a shortcut), not from a click.
    void KeyboardFocusIn();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
};
