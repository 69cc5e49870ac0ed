// SPDX-License-Identifier: MIT
#include "store/watch/FolderEvents.hpp"

#include "store/watch/WatchSystem.hpp"

#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <string_view>
#include <utility>

namespace foundation {

namespace {

bool isFileOf(std::string_view store, std::string_view name) {
  if (!name.starts_with(store)) return false;
  const auto ending = name.substr(store.size());
  return ending.empty() || ending == "-wal" || ending == "-shm";
}

}  // namespace

FolderEvents::FolderEvents(std::filesystem::path store, WatchSystem& system)
    : store_(std::move(store)), system_(system) {
  watch();
  files_ = look();
}

void FolderEvents::watch() {
  auto notifier = system_.watchFolder(store_.parent_path());
  std::error_code error;
  refusal_ = notifier || !std::filesystem::exists(store_.parent_path(), error)
                 ? ""
                 : notifier.error().message;
  if (notifier) notifier_ = *std::move(notifier);
}

FolderEvents::News FolderEvents::take() {
  if (notifier_) return takeEvents();
  // Before the files are looked at, so that no change between the two is missed.
  watch();
  return compareFiles();
}

FolderEvents::News FolderEvents::takeEvents() {
  auto news = News::none;
  const std::string name = store_.filename();
  alignas(inotify_event) std::array<char, 4096> buffer{};
  bool isGone = false;
  for (ssize_t length = 0; (length = ::read(notifier_.get(), buffer.data(), buffer.size())) > 0;) {
    for (std::size_t at = 0; at < static_cast<std::size_t>(length);) {
      inotify_event event{};
      std::memcpy(&event, buffer.data() + at, sizeof event);
      const char* file = event.len > 0 ? buffer.data() + at + sizeof event : "";
      at += sizeof event + event.len;
      isGone =
          isGone || (event.mask & (IN_DELETE_SELF | IN_MOVE_SELF | IN_IGNORED | IN_UNMOUNT)) != 0;
      if ((event.mask & IN_Q_OVERFLOW) != 0) news = News::files;
      if (!isFileOf(name, file)) continue;
      news = std::max(news,
                      (event.mask & (IN_MODIFY | IN_ATTRIB)) != 0 ? News::contents : News::files);
    }
  }
  if (!isGone) return news;
  notifier_ = FileDescriptor();
  files_ = look();
  return News::files;
}

FolderEvents::News FolderEvents::compareFiles() {
  const Files before = std::exchange(files_, look());
  if (files_ == before) return News::none;
  const bool areSame = std::equal(
      files_.begin(), files_.end(), before.begin(),
      [](const File& a, const File& b) { return a.device == b.device && a.node == b.node; });
  return areSame ? News::contents : News::files;
}

FolderEvents::Files FolderEvents::look() const {
  Files files;
  const std::array<const char*, 2> endings{"", "-wal"};
  for (std::size_t i = 0; i < files.size(); ++i) {
    struct stat found {};
    if (::lstat((store_.string() + endings[i]).c_str(), &found) != 0) continue;
    files[i] = {.device = found.st_dev,
                .node = found.st_ino,
                .size = found.st_size,
                .seconds = found.st_mtim.tv_sec,
                .nanoseconds = found.st_mtim.tv_nsec};
  }
  return files;
}

}  // namespace foundation
