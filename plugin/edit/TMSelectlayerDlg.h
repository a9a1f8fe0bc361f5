#pragma once

#include <QDialog>

class QComboBox;
class QDialogButtonBox;
class QLabel;

namespace TMObjects {
class TLTool;
}

// Asks for the layer that a copy goes to. The combo lists the layers of one type by name, each
// carrying its layer id; the answer goes back to the tool as its "layerID" parameter, "-1" when
// cancelled or when the combo is empty.
class TMSelectlayerDlg : public QDialog {
public:
    explicit TMSelectlayerDlg(QWidget* parent = nullptr);

    // Stores the tool and lists the line layers.
    void setTool(TMObjects::TLTool* tool);
    // Lists the layers of the tool's map whose type is `type`, in map order.
    void setLayerType(int type);

    void accept() override;
    void reject() override;

private:
    void buildWidgets();

    TMObjects::TLTool* mTool = nullptr;
    QLabel* label = nullptr;
    QComboBox* layerComboBox = nullptr;
    QDialogButtonBox* buttonBox = nullptr;
};
