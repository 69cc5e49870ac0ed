// SPDX-License-Identifier: MIT
#pragma once

#include <QCache>
#include <QCoreApplication>

namespace qt {

// The cached value of a key, made by `make` when it is missing. There is one cache for each type of
// key, so each use defines a key type of its own. A cache holds the `most` values that were used
// last, and is emptied when the application ends, because pixmaps and laid-out text must not
// outlive it. Main thread only.
template <class Value, int most, class Key, class Make>
Value cached(const Key& key, const Make& make) {
  static QCache<Key, Value> cache(most);
  static const bool registered = (qAddPostRoutine([] { cache.clear(); }), true);
  Q_UNUSED(registered);

  if (const Value* const known = cache.object(key)) return *known;
  Value value = make();
  cache.insert(key, new Value(value));
  return value;
}

}  // namespace qt
