#pragma once

#include <functional>
#include <string>
#include <vector>

#include "tlbase/TLColor.h"
#include "tlsymbol/TLStyle.h"

namespace TMObjects {

// A style made from the words of a script's `style` command (see TLStyleSetup.h).
class TLStyleSpec {
public:
    // Finds a style the script made before by its id; false with the reason when there is none.
    using Lookup =
        std::function<bool(const std::string& id, TLRefPtr<TLStyle>& style, std::string& error)>;

    // The style of that kind with the keys set; null with the reason for an unknown kind, an
    // unknown key, a key the kind does not have, or a value that does not read.
    static TLRefPtr<TLStyle> Make(const std::string& kind, const std::vector<std::string>& keys,
                                  const Lookup& lookup, std::string& error);
    // "#rrggbb" or "#rrggbbaa"; false when the text is neither.
    static bool Color(const std::string& text, TLColor& color);
    // Numbers separated by commas.
    static bool Numbers(const std::string& text, std::vector<double>& numbers);

private:
    static bool setKey(TLStyle& style, const std::string& key, const std::string& value,
                       const Lookup& lookup, std::string& error);
    // Each sets a key of its family: 1 when set, 0 when the key or its value does not fit the
    // style, -1 when a nested style is missing (the reason in `error`).
    static int setPointKey(TLStyle& style, const std::string& key, const std::string& value);
    static int setLineKey(TLStyle& style, const std::string& key, const std::string& value,
                          const Lookup& lookup, std::string& error);
    static int setFillKey(TLStyle& style, const std::string& key, const std::string& value,
                          const Lookup& lookup, std::string& error);
};

}  // namespace TMObjects
