#pragma once

#include <functional>
#include <map>

#include "tlbase/TLString.h"
#include "tlbase/TLVariant.h"

namespace TMObjects {

class TLEvent {
public:
    explicit TLEvent(const TLVariant& data = TLVariant()) : mData(data) {}
    const TLVariant& GetData() const { return mData; }

private:
    TLVariant mData;
};

// A signal of the map. Each binding has a key unique to the pair of receiver and handler, made
// with TLString::Format("%x %x", tool, method).
class TLEventSignal {
public:
    using Callback = std::function<void(void* sender, TLEvent* event)>;

    void bind(const TLString& key, Callback callback) { mBindings[key] = std::move(callback); }
    void unbind(const TLString& key) { mBindings.erase(key); }
    bool isBound(const TLString& key) const { return mBindings.count(key) != 0; }
    int bindingCount() const { return int(mBindings.size()); }
    void emit(void* sender, TLEvent* event);

private:
    std::map<TLString, Callback> mBindings;
};

}  // namespace TMObjects
