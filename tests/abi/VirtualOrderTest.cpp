// The host and the plugin are built apart and meet only through virtual tables, so a virtual
// function that moves breaks every tool compiled against the old order without a diagnostic.
// Under the Itanium C++ ABI a pointer to a virtual member function stores 1 + the byte offset of
// its slot in the virtual table; these tests read that offset back.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include "TLPluginActionEX.h"
#include "tlmap/TLBlock.h"
#include "tlmap/TLFeatureRender.h"
#include "tlmap/TLImageClassRenderInfo.h"
#include "tlmap/TLImageStretchRenderInfo.h"
#include "tlmap/TLRasterBand.h"
#include "tlmap/TLRasterProps.h"
#include "tlmap/TLTool.h"
#include "tlmap/TLToolBuddy.h"
#include "tlsymbol/TLStyle.h"

namespace {

using namespace TMObjects;

template <class Method>
std::ptrdiff_t SlotOf(Method method) {
    static_assert(sizeof(Method) == 2 * sizeof(std::ptrdiff_t), "Itanium member pointer");
    std::ptrdiff_t word = 0;
    std::memcpy(&word, &method, sizeof(word));
    // An odd first word marks a virtual function; a non-virtual one would hold its address.
    EXPECT_EQ(word % 2, 1) << "not a virtual function";
    return (word - 1) / std::ptrdiff_t(sizeof(void*));
}

using Slots = std::vector<std::pair<std::string, std::ptrdiff_t>>;

// The destructor comes first in every class here and takes the two slots 0 and 1 (the complete
// and the deleting destructor), so the first listed operation sits in slot 2.
void ExpectConsecutiveFromSlot2(const Slots& slots) {
    for (std::size_t i = 0; i < slots.size(); ++i)
        EXPECT_EQ(slots[i].second, std::ptrdiff_t(i) + 2) << slots[i].first;
}

TEST(VirtualOrder, ToolVirtualsFollowTheDestructorInTheirFixedOrder) {
    const Slots slots = {
        {"flags", SlotOf(&TLTool::flags)},
        {"activate", SlotOf(&TLTool::activate)},
        {"deactivate", SlotOf(&TLTool::deactivate)},
        {"isActive", SlotOf(&TLTool::isActive)},
        {"Init", SlotOf(&TLTool::Init)},
        {"OnMouseDown", SlotOf(&TLTool::OnMouseDown)},
        {"OnMouseUp", SlotOf(&TLTool::OnMouseUp)},
        {"OnMouseMove", SlotOf(&TLTool::OnMouseMove)},
        {"OnDblClick", SlotOf(&TLTool::OnDblClick)},
        {"processInformation", SlotOf(&TLTool::processInformation)},
        {"processChildCmd", SlotOf(&TLTool::processChildCmd)},
        {"setInformation", SlotOf(&TLTool::setInformation)},
        {"setMultipleInformation", SlotOf(&TLTool::setMultipleInformation)},
        {"IsCmd", SlotOf(&TLTool::IsCmd)},
        {"OnKeyDown", SlotOf(&TLTool::OnKeyDown)},
        {"clearCanvas", SlotOf(&TLTool::clearCanvas)},
        {"getName", SlotOf(&TLTool::getName)},
        {"getParams", SlotOf(&TLTool::getParams)},
        {"setParam", SlotOf(&TLTool::setParam)},
        {"setParams", SlotOf(&TLTool::setParams)},
        {"removeParam", SlotOf(&TLTool::removeParam)},
        {"AddFirstPoint", SlotOf(&TLTool::AddFirstPoint)},
        {"AddInputPoint", SlotOf(&TLTool::AddInputPoint)},
        {"stopInputPoint", SlotOf(&TLTool::stopInputPoint)},
        {"isHaveOnePoint", SlotOf(&TLTool::isHaveOnePoint)},
    };
    ExpectConsecutiveFromSlot2(slots);
}

TEST(VirtualOrder, BuddyOperationsKeepTheirRelativeOrder) {
    // The host may add operations between these, so only their relative order is fixed.
    const Slots slots = {
        {"GetMapView", SlotOf(&TLToolBuddy::GetMapView)},
        {"HasActiveMap", SlotOf(&TLToolBuddy::HasActiveMap)},
        {"NotifyEdited", SlotOf(&TLToolBuddy::NotifyEdited)},
        {"SetToolEnabled", SlotOf(&TLToolBuddy::SetToolEnabled)},
        {"SetCursor", SlotOf(&TLToolBuddy::SetCursor)},
        {"UnregisterTool", SlotOf(&TLToolBuddy::UnregisterTool)},
        {"SetPrompt", SlotOf(&TLToolBuddy::SetPrompt)},
        {"AppendMessage", SlotOf(&TLToolBuddy::AppendMessage)},
        {"RegisterTool", SlotOf(&TLToolBuddy::RegisterTool)},
        {"KeyboardModifiers", SlotOf(&TLToolBuddy::KeyboardModifiers)},
        {"ShowMessage", SlotOf(&TLToolBuddy::ShowMessage)},
        {"MainWindowId", SlotOf(&TLToolBuddy::MainWindowId)},
        {"RefreshLayerList", SlotOf(&TLToolBuddy::RefreshLayerList)},
        {"SetScratchPolygonLayerId", SlotOf(&TLToolBuddy::SetScratchPolygonLayerId)},
        {"ScratchPolygonLayerId", SlotOf(&TLToolBuddy::ScratchPolygonLayerId)},
        {"SetScratchPointLayerId", SlotOf(&TLToolBuddy::SetScratchPointLayerId)},
        {"ScratchPointLayerId", SlotOf(&TLToolBuddy::ScratchPointLayerId)},
        {"SetPolygonPartMode", SlotOf(&TLToolBuddy::SetPolygonPartMode)},
        {"PolygonPartMode", SlotOf(&TLToolBuddy::PolygonPartMode)},
        {"SetLinePartMode", SlotOf(&TLToolBuddy::SetLinePartMode)},
        {"LinePartMode", SlotOf(&TLToolBuddy::LinePartMode)},
    };
    // The destructor stays in front of them all.
    EXPECT_GE(slots.front().second, 2);
    for (std::size_t i = 1; i < slots.size(); ++i)
        EXPECT_GT(slots[i].second, slots[i - 1].second)
            << slots[i].first << " does not follow " << slots[i - 1].first;
}

TEST(VirtualOrder, PluginVirtualsAreDestructorInitPluginUnloadPluginIsDll) {
    const Slots slots = {
        {"InitPlugin", SlotOf(&TLPluginActionEX::InitPlugin)},
        {"UnloadPlugin", SlotOf(&TLPluginActionEX::UnloadPlugin)},
        {"IsDll", SlotOf(&TLPluginActionEX::IsDll)},
    };
    ExpectConsecutiveFromSlot2(slots);
    // The plugin class adds no data member: the host may size it as its base.
    EXPECT_EQ(sizeof(TLPluginActionEX), sizeof(TLPlugin));
}

TEST(VirtualOrder, RasterOperationsFollowTheDestructorInTheirFixedOrder) {
    const Slots slots = {
        {"GetWidth", SlotOf(&TLRasterProps::GetWidth)},
        {"GetHeight", SlotOf(&TLRasterProps::GetHeight)},
        {"cellWidth", SlotOf(&TLRasterProps::cellWidth)},
        {"cellHeight", SlotOf(&TLRasterProps::cellHeight)},
        {"GetSpatialReference", SlotOf(&TLRasterProps::GetSpatialReference)},
        {"dataType", SlotOf(&TLRasterProps::dataType)},
        {"GetBound", SlotOf(&TLRasterProps::GetBound)},
        {"newBlock", SlotOf(&TLRasterProps::newBlock)},
        {"readBlock", SlotOf(&TLRasterProps::readBlock)},
        {"GetBandCount", SlotOf(&TLRasterProps::GetBandCount)},
        {"GetBand", SlotOf(&TLRasterProps::GetBand)},
        {"noDataValue", SlotOf(&TLRasterProps::noDataValue)},
    };
    ExpectConsecutiveFromSlot2(slots);
}

TEST(VirtualOrder, BlockIsDestructorThenDataThenValue) {
    // The deleting destructor is slot 1: code that deletes a block it was handed calls it there.
    ExpectConsecutiveFromSlot2(
        {{"data", SlotOf(&TLBlock::data)}, {"value", SlotOf(&TLBlock::value)}});
}

TEST(VirtualOrder, BandAndRenderInfoOperations) {
    ExpectConsecutiveFromSlot2({{"GetStatistics", SlotOf(&TLRasterBand::GetStatistics)},
                                {"GetBandIndex", SlotOf(&TLRasterBand::GetBandIndex)}});
    ExpectConsecutiveFromSlot2({{"GetColorCount", SlotOf(&TLImageStretchRenderInfo::GetColorCount)},
                                {"GetColor", SlotOf(&TLImageStretchRenderInfo::GetColor)}});
    ExpectConsecutiveFromSlot2({{"GetClassCount", SlotOf(&TLImageClassRenderInfo::GetClassCount)}});
}

// The style writers call the operations of a style by slot: the four the writers read first, then
// the library's save and open; a render's styles are its first operation.
TEST(VirtualOrder, StyleAndRenderOperations) {
    ExpectConsecutiveFromSlot2({{"GetClassType", SlotOf(&TLStyle::GetClassType)},
                                {"GetTypeID", SlotOf(&TLStyle::GetTypeID)},
                                {"GetUnits", SlotOf(&TLStyle::GetUnits)},
                                {"GetColor", SlotOf(&TLStyle::GetColor)},
                                {"save", SlotOf(&TLStyle::save)},
                                {"open", SlotOf(&TLStyle::open)}});
    ExpectConsecutiveFromSlot2({{"GetStyles", SlotOf(&TLFeatureRender::GetStyles)}});
}

}  // namespace
