#include "digitize/TLDigitizeKey.h"

namespace TMObjects {

namespace {

struct KeyText {
    const char* text;
    TLDigitizeKey::Key key;
};

const KeyText kKeys[] = {
    {"E", TLDigitizeKey::Finish},          {"U", TLDigitizeKey::GiveUp},
    {"J", TLDigitizeKey::Interval},        {"D", TLDigitizeKey::CloseInterval},
    {"YS", TLDigitizeKey::Extension},      {"PL", TLDigitizeKey::Parallel},
    {"PY", TLDigitizeKey::ParallelExtend}, {"FX", TLDigitizeKey::Reversion},
    {"CZ", TLDigitizeKey::Vertical},       {"AS", TLDigitizeKey::MicroTraverse},
    {"C", TLDigitizeKey::Close},           {"LE", TLDigitizeKey::SpecifyLength},
    {"OF", TLDigitizeKey::Offset},         {"CL", TLDigitizeKey::ModifyLength},
};

}  // namespace

TLDigitizeKey::Key TLDigitizeKey::Parse(const TLString& text) {
    for (const KeyText& each : kKeys)
        if (text.CompareNoCase(each.text) == 0) return each.key;
    return NoKey;
}

}  // namespace TMObjects
