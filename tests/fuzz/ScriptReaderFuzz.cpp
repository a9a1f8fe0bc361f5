// The session script reader on any bytes: every input is read as a script or refused with a
// reason on one line, and the words of every command read as numbers, switches and rests.
#include <fstream>
#include <sstream>

#include "FuzzTarget.h"
#include "TLSessionScript.h"

using TMObjects::TLSessionCommand;
using TMObjects::TLSessionScript;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    TLSessionScript script;
    std::string error;
    const std::string text(reinterpret_cast<const char*>(data), size);
    if (!script.Parse(text, error)) {
        if (error.empty() || TLSessionScript::Escaped(error).find('\n') != std::string::npos)
            __builtin_trap();  // a refusal says why, on one line
        return 0;
    }
    for (const TLSessionCommand& command : script.Commands()) {
        double number = 0;
        int integer = 0;
        bool on = false;
        for (std::size_t i = 0; i <= command.words.size(); ++i) {
            command.Number(i, number, error);
            command.Integer(i, integer, error);
            command.Switch(i, on, error);
            command.Rest(i);
        }
        command.Expect(1, 3, "usage", error);
        command.Choice(0, "a|b|c", "usage", error);
        TLSessionScript::Make(command.line, command.words);
    }
    return 0;
}

std::vector<std::string> FuzzSeeds() {
    return {
        "# a comment\nopen demo.gpkg\nview 500000 5000000 500800 5000600 800 600\n",
        "tool TLCmdDigitizeLine\nclick left @500100,5000100\ntype \"a \\\"b\\\" \\\\ c\\n\"\n",
        "expect last roads \"MULTILINESTRING ((1 2, 3 4))\"\nkey Escape\nundo\nredo\nsave\n",
        "\xEF\xBB\xBFset wells 1 name=\"Mill Road\" 1e308 -0 nan\n\ttype   \n",
    };
}
