#pragma once

#include <QDialog>
#include <QString>
#include <vector>

#include "export/Ui_TERRALOOM_SLD_ConverterClass.h"
#include "tlmap/TLLayer.h"

// Writes the symbology of the map's layers as a Styled Layer Descriptor file. Every layer is
// written in turn to the one chosen file, each replacing the one before, so that the file ends
// up describing the last layer of the list.
class TERRALOOM_SLD_Converter : public QDialog, protected Ui_TERRALOOM_SLD_ConverterClass {
public:
    TERRALOOM_SLD_Converter(const std::vector<TMObjects::TLRefPtr<TMObjects::TLLayer>>& layers,
                            QWidget* parent = nullptr);
    ~TERRALOOM_SLD_Converter() override;

    // "SavePath": asks for the file; a name whose folder part is empty is not taken.
    void onSaveFile();
    // "Convert": writes every layer to the chosen file, reports success and closes, also when
    // no file was chosen and nothing could be written.
    void onConvert();

    const QString& savePath() const { return mSavePath; }

private:
    QString mSavePath;
    std::vector<TMObjects::TLRefPtr<TMObjects::TLLayer>> mLayers;
};
