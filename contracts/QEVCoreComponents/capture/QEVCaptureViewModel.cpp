// SPDX-License-Identifier: MIT
#include "QEVCoreComponents/QEVCaptureViewModel.hpp"

#include <utility>

namespace QEVCoreComponents {

QEVCaptureViewModel::QEVCaptureViewModel(QEVSettings::PreferencesStore& store,
                                         std::shared_ptr<NetworkInterfaces> interfaces)
    : store_(store),
      interfaces_(std::move(interfaces)),
      interfacesWillChange_(
          interfaces_->objectWillChange().subscribe([this] { objectWillChange().announce(); })),
      storeDidChange_(store.observeAll([this](std::string_view key) {
        if (key.starts_with(kKeyPrefix)) objectWillChange().announce();
      })) {}

std::string QEVCaptureViewModel::interfaceName() const {
  return store_.stringForKey(kInterfaceKey).value_or("");
}
void QEVCaptureViewModel::setInterfaceName(std::string_view name) { set(name, kInterfaceKey); }

bool QEVCaptureViewModel::isPromiscuous() const {
  return !store_.objectForKey(kPromiscuousKey) || store_.boolForKey(kPromiscuousKey);
}
void QEVCaptureViewModel::setPromiscuous(bool promiscuous) { set(promiscuous, kPromiscuousKey); }

std::string QEVCaptureViewModel::captureFilter() const {
  return store_.stringForKey(kFilterKey).value_or("");
}
void QEVCaptureViewModel::setCaptureFilter(std::string_view filter) { set(filter, kFilterKey); }

std::int64_t QEVCaptureViewModel::snapshotLength() const {
  return number(kSnapshotLengthKey, kSnapshotLength);
}
void QEVCaptureViewModel::setSnapshotLength(std::int64_t bytes) {
  setNumber(bytes, kSnapshotLengthKey, kSnapshotLength);
}

std::int64_t QEVCaptureViewModel::bufferSize() const { return number(kBufferSizeKey, kBufferSize); }
void QEVCaptureViewModel::setBufferSize(std::int64_t mebibytes) {
  setNumber(mebibytes, kBufferSizeKey, kBufferSize);
}

bool QEVCaptureViewModel::usesRingOfFiles() const { return store_.boolForKey(kUsesRingKey); }
void QEVCaptureViewModel::setUsesRingOfFiles(bool uses) { set(uses, kUsesRingKey); }

std::int64_t QEVCaptureViewModel::ringFileCount() const {
  return number(kRingFileCountKey, kRingFileCount);
}
void QEVCaptureViewModel::setRingFileCount(std::int64_t count) {
  setNumber(count, kRingFileCountKey, kRingFileCount);
}

std::int64_t QEVCaptureViewModel::ringFileSize() const {
  return number(kRingFileSizeKey, kRingFileSize);
}
void QEVCaptureViewModel::setRingFileSize(std::int64_t mebibytes) {
  setNumber(mebibytes, kRingFileSizeKey, kRingFileSize);
}

std::int64_t QEVCaptureViewModel::number(std::string_view key, const NumberRange& range) const {
  const std::int64_t stored = store_.integerForKey(key);
  return range.contains(stored) ? stored : range.initial;
}

void QEVCaptureViewModel::setNumber(std::int64_t number, std::string_view key,
                                    const NumberRange& range) {
  if (range.contains(number)) set(number, key);
}

void QEVCaptureViewModel::set(QEVSettings::PreferenceValue value, std::string_view key) {
  objectWillChange().announce();
  store_.setObject(std::move(value), key);
}

}  // namespace QEVCoreComponents
