#pragma once

#include <QDialog>
#include <vector>

#include "tmgiscore/TMUnitTypes.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QTreeWidget;

namespace TMObjects {
class TLToolMeasureLine;
}

// The floating list of a measured line: one row a segment, the live segment last, and the total
// in the unit picked.
class TMDisplayLength : public QDialog {
public:
    explicit TMDisplayLength(QWidget* parent = nullptr);

    void setTool(TMObjects::TLToolMeasureLine* tool);
    // The segment from the last vertex to the pointer, in the tool's unit.
    void setLastSegment(double value);
    // Shows the clicked segments again in the unit now picked, without the live segment.
    void unitsChanged(int index);

private:
    void buildWidgets();
    // The factor from the base values to the unit picked.
    double chosenFactor() const;
    // Reads the clicked segments off the tool while it measures.
    void takeSegments();
    void showSegments(bool withLiveSegment);
    void addRow(double value);

    TMObjects::TLToolMeasureLine* tool = nullptr;
    int currentIndex = 0;
    int previousIndex = 0;
    double lastSegment = 0.0;
    double total = 0.0;
    TMGis::UnitType baseUnit = TMGis::UnknownUnit;
    double baseFactor = 1.0;
    // The unit is chosen once for the tool, so the user's own pick stays while measuring.
    bool unitChosen = false;
    // The clicked segments in the base unit, kept for a change of unit after measuring ended.
    std::vector<double> segments;

    QComboBox* mComboBoxUnits = nullptr;
    QLineEdit* mLineEditTotal = nullptr;
    QLabel* mLabelTotal = nullptr;
    QTreeWidget* mTreeWidget = nullptr;
};
