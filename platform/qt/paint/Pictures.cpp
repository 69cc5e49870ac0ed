// SPDX-License-Identifier: MIT
#include "paint/Pictures.hpp"

#include "bridge/Strings.hpp"
#include "paint/Cache.hpp"

#include <QImageReader>
#include <QPainter>
#include <QSvgRenderer>

namespace qt {

namespace {

struct Key {
  QString file;
  QSize pixels;
  viewkit::ImageVisual::Mode mode;
  qreal devicePixelRatio;

  friend bool operator==(const Key&, const Key&) = default;
  friend std::size_t qHash(const Key& key, std::size_t seed = 0) {
    return qHashMulti(seed, key.file, key.pixels.width(), key.pixels.height(),
                      static_cast<int>(key.mode), key.devicePixelRatio);
  }
};

bool isDrawing(const QString& file) {
  return file.endsWith(QLatin1String(".svg"), Qt::CaseInsensitive);
}

QSizeF sizeOf(const QString& file) {
  if (isDrawing(file)) return QSvgRenderer(file).defaultSize();
  return QImageReader(file).size();
}

QRectF targetIn(QSizeF frame, QSizeF picture, viewkit::ImageVisual::Mode mode) {
  using Mode = viewkit::ImageVisual::Mode;
  if (mode == Mode::stretch) return {QPointF(), frame};
  const QSizeF size = picture.scaled(
      frame, mode == Mode::fit ? Qt::KeepAspectRatio : Qt::KeepAspectRatioByExpanding);
  return {QPointF((frame.width() - size.width()) / 2, (frame.height() - size.height()) / 2), size};
}

QPixmap render(const Key& key) {
  const QSizeF size = sizeOf(key.file);
  if (size.isEmpty()) return {};
  QImage image(key.pixels, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
  const QRectF target = targetIn(key.pixels, size, key.mode);
  if (isDrawing(key.file)) {
    QSvgRenderer(key.file).render(&painter, target);
  } else {
    painter.drawImage(target, QImage(key.file));
  }
  painter.end();
  QPixmap pixmap = QPixmap::fromImage(image);
  pixmap.setDevicePixelRatio(key.devicePixelRatio);
  return pixmap;
}

}  // namespace

QSizeF pictureSize(const std::string& path) {
  const QSizeF size = path.empty() ? QSizeF() : sizeOf(toQString(path));
  return size.isValid() ? size : QSizeF(0, 0);
}

QPixmap picturePixmap(const viewkit::ImageVisual& image, QSizeF frame, qreal devicePixelRatio) {
  const Key key{toQString(image.path), (frame * devicePixelRatio).toSize(), image.mode,
                devicePixelRatio};
  if (image.path.empty() || key.pixels.isEmpty()) return {};
  return cached<QPixmap, 64>(key, [&] { return render(key); });
}

}  // namespace qt
