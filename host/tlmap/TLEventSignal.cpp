#include "tlmap/TLEventSignal.h"

#include <vector>

namespace TMObjects {

void TLEventSignal::emit(void* sender, TLEvent* event) {
    // Handlers unbind themselves (a tool leaving in its handler) or others while the signal runs:
    // walk a list of keys taken beforehand, call only what is still bound, and call a copy, so
    // that erasing the binding does not destroy the function that is running.
    std::vector<TLString> keys;
    keys.reserve(mBindings.size());
    for (const auto& binding : mBindings) keys.push_back(binding.first);
    for (const TLString& key : keys) {
        auto it = mBindings.find(key);
        if (it == mBindings.end() || !it->second) continue;
        Callback callback = it->second;
        callback(sender, event);
    }
}

}  // namespace TMObjects
