// SPDX-License-Identifier: MIT
#include "Contender.hpp"

#include <QSettings>

namespace {

QString fileIn(const std::filesystem::path& folder) {
  return QString::fromStdString((folder / "settings.ini").string());
}

class QSettingsContender final : public Contender {
public:
  QSettingsContender(const std::filesystem::path& folder, std::size_t keyCount)
      : settings_(fileIn(folder), QSettings::IniFormat) {
    for (std::size_t i = 0; i < keyCount; ++i) names_.push_back(QString::fromStdString(keyName(i)));
  }

  bool readBoolean(std::size_t key) override { return settings_.value(names_[key]).toBool(); }
  std::size_t readString(std::size_t key) override {
    const QString text = settings_.value(names_[key]).toString();
    return static_cast<std::size_t>(text.size()) + text.back().unicode();
  }
  std::size_t readBytes(std::size_t key) override {
    return lengthAndLast(settings_.value(names_[key]).toByteArray());
  }
  void writeBoolean(std::size_t key, bool value) override {
    settings_.setValue(names_[key], value);
    settings_.sync();
  }

private:
  QSettings settings_;
  std::vector<QString> names_;
};

void fill(const std::filesystem::path& folder, std::size_t keyCount) {
  QSettings settings(fileIn(folder), QSettings::IniFormat);
  for (std::size_t i = 0; i < keyCount; ++i) {
    const QString name = QString::fromStdString(keyName(i));
    switch (kindOf(i)) {
      case KeyKind::boolean: settings.setValue(name, true); break;
      case KeyKind::string: settings.setValue(name, QString::fromStdString(stringValue(i))); break;
      case KeyKind::bytes: {
        const auto bytes = bytesValue(i);
        settings.setValue(name, QByteArray(reinterpret_cast<const char*>(bytes.data()),
                                           static_cast<qsizetype>(bytes.size())));
        break;
      }
    }
  }
}

}  // namespace

const ContenderKind& qSettingsContender() {
  static const ContenderKind kind{
      .name = "QSettings",
      .open = [](const std::filesystem::path& folder,
                 std::size_t keyCount) -> std::unique_ptr<Contender> {
        return std::make_unique<QSettingsContender>(folder, keyCount);
      },
      .fill = fill,
  };
  return kind;
}
