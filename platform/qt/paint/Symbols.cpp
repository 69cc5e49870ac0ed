// SPDX-License-Identifier: MIT
#include "paint/Symbols.hpp"

#include "paint/Cache.hpp"

#include <QPainter>
#include <QSvgRenderer>

static void initializeSymbols() { Q_INIT_RESOURCE(symbols); }

namespace qt {

namespace {

struct Key {
  QByteArray name;
  QSize pixels;
  QRgb color;
  qreal devicePixelRatio;

  friend bool operator==(const Key&, const Key&) = default;
  friend std::size_t qHash(const Key& key, std::size_t seed = 0) {
    return qHashMulti(seed, key.name, key.pixels.width(), key.pixels.height(), key.color,
                      key.devicePixelRatio);
  }
};

QPixmap render(const QString& file, QSize pixels, const QColor& color) {
  QSvgRenderer drawing(file);
  if (!drawing.isValid()) return {};
  drawing.setAspectRatioMode(Qt::KeepAspectRatio);
  QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  drawing.render(&painter, QRectF(QPointF(), QSizeF(pixels)));
  painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
  painter.fillRect(image.rect(), color);
  painter.end();
  return QPixmap::fromImage(image);
}

}  // namespace

QPixmap symbolPixmap(std::string_view name, QSizeF size, const QColor& color,
                     qreal devicePixelRatio) {
  static const bool initialized = (initializeSymbols(), true);
  Q_UNUSED(initialized);

  const QSize pixels = (size * devicePixelRatio).toSize();
  if (pixels.isEmpty()) return {};
  const QByteArray symbol(name.data(), static_cast<qsizetype>(name.size()));
  const Key key{symbol, pixels, color.rgba(), devicePixelRatio};
  return cached<QPixmap, 256>(key, [&] {
    QPixmap pixmap = render(":/symbols/" + QString::fromUtf8(symbol) + ".svg", pixels, color);
    pixmap.setDevicePixelRatio(devicePixelRatio);
    return pixmap;
  });
}

}  // namespace qt
