#include <boost/dll/alias.hpp>

#include "TLPluginActionEX.h"

namespace TMObjects {
namespace {

// The library's only entry point. It stays hidden: the host reaches it through the alias below,
// which holds its address.
TLRefPtr<TLPlugin> CreatePluginActionEX() {
    return TLRefPtr<TLPlugin>(new TLPluginActionEX);
}

}  // namespace
}  // namespace TMObjects

// The host reads the factory's address from this data symbol in the section "boostdll".
BOOST_DLL_ALIAS_SECTIONED(TMObjects::CreatePluginActionEX, GetTMPlugIn, boostdll)
