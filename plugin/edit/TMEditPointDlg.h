#pragma once

#include <QDialog>

class QDialogButtonBox;
class QLineEdit;

namespace TMObjects {
class TLTool;
}

// Shows the map coordinates of the vertex picked by the edit point tool. Ok only closes: the
// fields are for reading and copying, and moving a vertex goes through the tool itself.
class TMEditPointDlg : public QDialog {
public:
    explicit TMEditPointDlg(QWidget* parent = nullptr);

    void setCoordinates(double x, double y);
    void setTool(TMObjects::TLTool* tool);
    void accept() override;

private:
    void buildWidgets();

    TMObjects::TLTool* mTool = nullptr;
    QLineEdit* xEdit = nullptr;
    QLineEdit* yEdit = nullptr;
    QDialogButtonBox* buttonBox = nullptr;
};
