#include "animatic/slide.h"

#include <QFont>

namespace {
QFont fontOfHeight(int pixels, bool bold = false) {
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(qMax(8, pixels));
    font.setBold(bold);
    return font;
}
} // namespace

QString CaptionOf(const Pane& pane) {
    return IsSet(pane.Text) ? pane.Text : QString();
}

void DrawSlide(QPainter& painter, const QRect& area, const Slide& slide) {
    painter.save();
    painter.fillRect(area, Qt::black);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setRenderHint(QPainter::TextAntialiasing);

    // Sizes follow the height, so a caption reads alike on a small window and in a 4K video.
    const int h = area.height();
    const int captionPixels = qMax(10, h / 24);
    const int margin = qMax(4, h / 60);
    QRect pictureArea = area;
    if (!slide.caption.isEmpty()) {
        const int band = captionPixels * 3;
        pictureArea.setBottom(area.bottom() - band);
        const QRect captionArea(area.left() + 2 * margin, pictureArea.bottom() + 1, area.width() - 4 * margin,
                                band);
        painter.setFont(fontOfHeight(captionPixels));
        painter.setPen(QColor(240, 240, 240));
        painter.drawText(captionArea, Qt::AlignCenter | Qt::TextWordWrap, slide.caption);
    }
    pictureArea.adjust(margin, margin, -margin, -margin);

    const QImage& image = slide.picture.image;
    if (!image.isNull() && !pictureArea.isEmpty()) {
        const QSize fitted = image.size().scaled(pictureArea.size(), Qt::KeepAspectRatio);
        QRect target(QPoint(0, 0), fitted);
        target.moveCenter(pictureArea.center());
        painter.drawImage(target, image);
    } else if (slide.picture.missing) {
        painter.fillRect(pictureArea, QColor(48, 48, 48));
        painter.setFont(fontOfHeight(captionPixels, true));
        painter.setPen(QColor(220, 220, 220));
        painter.drawText(pictureArea, Qt::AlignCenter, QStringLiteral("picture missing"));
    }

    if (!slide.corner.isEmpty()) {
        painter.setFont(fontOfHeight(qMax(9, h / 54)));
        painter.setPen(QColor(160, 160, 160));
        painter.drawText(area.adjusted(margin, margin, -margin, -margin / 2),
                         Qt::AlignRight | Qt::AlignBottom, slide.corner);
    }
    painter.restore();
}

QImage RenderSlide(QSize size, const Slide& slide) {
    QImage frame(size, QImage::Format_RGB32);
    QPainter painter(&frame);
    DrawSlide(painter, frame.rect(), slide);
    return frame;
}
