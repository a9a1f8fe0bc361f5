#include "tlmap/TLRasterWorkspace.h"

namespace TMObjects {

namespace {

std::map<TLString, TLRasterWorkspace::Factory>& factories() {
    static std::map<TLString, TLRasterWorkspace::Factory> registered;
    return registered;
}

}  // namespace

TLRasterWorkspace::~TLRasterWorkspace() = default;

TLRefPtr<TLRasterWorkspace> TLRasterWorkspace::Open(const TLString& type,
                                                    const Properties& properties) {
    auto it = factories().find(type);
    if (it == factories().end()) return TLRefPtr<TLRasterWorkspace>();
    return it->second(properties);
}

bool TLRasterWorkspace::RegisterType(const TLString& type, Factory factory) {
    factories()[type] = std::move(factory);
    return true;
}

}  // namespace TMObjects
