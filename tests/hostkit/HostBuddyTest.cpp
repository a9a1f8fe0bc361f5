// The host's buddy without a window: what a tool says reaches it in order, and what a tool asks
// is answered from values the host sets.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "hostkit/TLHostBuddy.h"
#include "tlmap/TLTool.h"

namespace TMObjects {
namespace {

using Texts = std::vector<std::string>;

Texts Spoken(const TLHostBuddy& buddy) {
    Texts out;
    for (const TLHostEvent& e : buddy.Events()) {
        const char* kind = e.kind == TLHostEvent::Prompt    ? "prompt "
                           : e.kind == TLHostEvent::Message ? "message "
                           : e.kind == TLHostEvent::Notice  ? "notice "
                                                            : "other ";
        out.push_back(kind + e.text.toStdString());
    }
    return out;
}

TEST(HostBuddy, PromptsHistoryLinesAndNoticesKeepTheirOrder) {
    TLHostBuddy buddy;
    Texts heard;
    buddy.AddListener([&](const TLHostEvent& e) { heard.push_back(e.text.toStdString()); });

    buddy.SetPrompt("Specify the first point:");
    buddy.AppendMessage("Command:Drawing Line");
    buddy.ShowMessage("Layer saved");
    buddy.AppendMessage("Point coordinate or command input error, please re-enter!");
    buddy.SetPrompt("");

    EXPECT_EQ(Spoken(buddy), (Texts{"prompt Specify the first point:",
                                    "message Command:Drawing Line", "notice Layer saved",
                                    "message Point coordinate or command input error, please "
                                    "re-enter!",
                                    "prompt "}));
    EXPECT_EQ(heard.size(), 5u);
    EXPECT_EQ(buddy.Prompt(), TLString(""));
    EXPECT_EQ(buddy.Latest(TLHostEvent::Message),
              TLString("Point coordinate or command input error, please re-enter!"));
    EXPECT_EQ(buddy.Latest(TLHostEvent::Notice), TLString("Layer saved"));
}

TEST(HostBuddy, OnlyTheRegisteredToolGivesUpTheCommandLine) {
    TLHostBuddy buddy;
    TLTool first, second;
    buddy.RegisterTool("DigitizeLine", &first, true);
    buddy.RegisterTool("DigitizePoint", &second, true);
    buddy.UnregisterTool(&first, false);  // no longer its line: nothing happens
    EXPECT_EQ(buddy.RegisteredTool(), &second);
    EXPECT_EQ(buddy.RegisteredName(), TLString("DigitizePoint"));

    buddy.UnregisterTool(&second, false);
    EXPECT_EQ(buddy.RegisteredTool(), nullptr);
    EXPECT_EQ(buddy.Texts(TLHostEvent::Unregister), std::vector<TLString>{"DigitizePoint"});
}

TEST(HostBuddy, ModifiersPartModesAndScratchLayersAnswerWhatTheHostSet) {
    TLHostBuddy buddy;
    EXPECT_EQ(buddy.KeyboardModifiers(), 0);
    EXPECT_EQ(buddy.ScratchPointLayerId(), -1);
    EXPECT_EQ(buddy.ScratchPolygonLayerId(), -1);

    buddy.SetKeyboardModifiers(0x2000000);  // Shift held
    EXPECT_EQ(buddy.KeyboardModifiers(), 0x2000000);
    // A source, once given, is asked at every call.
    int held = 0;
    buddy.SetModifiersSource([&] { return held; });
    EXPECT_EQ(buddy.KeyboardModifiers(), 0);
    held = 0x4000000;
    EXPECT_EQ(buddy.KeyboardModifiers(), 0x4000000);

    buddy.SetLinePartMode(1);
    buddy.SetPolygonPartMode(-1);
    buddy.SetScratchPointLayerId(7);
    buddy.SetScratchPolygonLayerId(8);
    EXPECT_EQ(buddy.LinePartMode(), 1);
    EXPECT_EQ(buddy.PolygonPartMode(), -1);
    EXPECT_EQ(buddy.ScratchPointLayerId(), 7);
    EXPECT_EQ(buddy.ScratchPolygonLayerId(), 8);
    EXPECT_FALSE(buddy.HasActiveMap()) << "no view";
}

}  // namespace
}  // namespace TMObjects
