#pragma once

namespace TMObjects {

// Where the clicks of one command differ from another's. The line follows each clicked vertex
// with its guide; the polygon leaves the guide to the pointer and counts its steps by what its
// closing rules need.
struct TLDigitizeClickRules {
    // The vertex of a plain, YS or LE click also becomes the end of the guide.
    bool clickEndsGuide;
    // A plain click empties the guide before its vertex goes in and repaints it afterwards.
    bool clickClearsGuide;
    // pointCount after a successful CZ or PL pick; 0 leaves it as it is.
    int countAfterReferencePick;
    // The first PY pick counts as an input step, although it adds no vertex.
    bool parallelPickCounts;
    // The PY crossing highlights the second picked line again before its vertex goes in.
    bool highlightCrossing;
    // A J corner gives the count prompt of its own before the clicked point follows.
    bool promptAfterCorner;
};

}  // namespace TMObjects
