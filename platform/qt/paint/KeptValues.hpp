#pragma once

#include <QCache>
#include <QCoreApplication>

namespace qt {

// The value for the key: as it was made before, or by `make`. The last `most` are kept for each
// type of key, which has to be a type of its own; they go with the application, which pictures and
// laid-out lines must not outlive.
template <class Value, int most, class Key, class Make>
Value keptValue(const Key& key, const Make& make) {
  static QCache<Key, Value> cache(most);
  static const bool registered = (qAddPostRoutine([] { cache.clear(); }), true);
  Q_UNUSED(registered);

  if (const Value* const known = cache.object(key)) return *known;
  const Value value = make();
  cache.insert(key, new Value(value));
  return value;
}

}  // namespace qt
