#pragma once

#include <QMainWindow>
#include <memory>

#include "tlmap/TLEditor.h"

class QAction;
class QDockWidget;
class QLabel;

namespace TMObjects {

class TLAttributeTable;
class TLCommandWindow;
class TLEditReporter;
class TLShellCommands;
class TLSnapSettings;
class TLSnapToolBar;
class TLHostBuddy;
class TLLayer;
class TLLayerPanel;
class TLMapCanvas;
class TLMapView;
class TLShellDocument;
class TLToolDispatcher;
class TLToolPalette;
struct TLHostEvent;

// The desktop shell: the map canvas in the middle, the command window docked below, the layer
// panel and the tool palette at the sides, and the menus. It is the host of one map view: its
// buddy reflects what tools say on screen, and its dispatcher carries the canvas's and the
// command window's input to the tool in use. The plugin must be loaded (its tools in the pool)
// before tools are picked.
class TLShellWindow : public QMainWindow, private TLEditorListener {
    Q_OBJECT

public:
    explicit TLShellWindow(QWidget* parent = nullptr);
    ~TLShellWindow() override;

    // Opens a data source into the map; a failure is shown to the user and answered false.
    bool OpenData(const QString& path);
    // Picks the tool of the tool table's row: Init and activate through the dispatcher.
    void PickTool(int index);
    void LeaveTool();
    // Escape, wherever the focus is in the window: typed text goes first, then the tool drops
    // what it is drawing; with nothing under way the tool is left.
    void Escape();
    bool SaveEdits();

    TLShellDocument* Document() const { return mDocument.get(); }
    TLMapView* View() const { return mView.get(); }
    TLHostBuddy* Buddy() const { return mBuddy.get(); }
    TLToolDispatcher* Dispatcher() const { return mDispatcher.get(); }
    TLMapCanvas* Canvas() const { return mCanvas; }
    TLCommandWindow* Commands() const { return mCommands; }
    TLToolPalette* Palette() const { return mPalette; }
    TLLayerPanel* Layers() const { return mLayers; }
    QAction* UndoAction() const { return mUndo; }
    QAction* RedoAction() const { return mRedo; }
    QAction* SaveAction() const { return mSave; }
    QLabel* CoordinateLabel() const { return mCoordinates; }
    QLabel* ScaleLabel() const { return mScale; }
    TLSnapSettings* Snapping() const { return mSnapSettings; }
    TLSnapToolBar* SnapBar() const { return mSnapBar; }
    TLShellCommands* ShellCommands() const { return mShellCommands.get(); }
    TLAttributeTable* Attributes() const { return mAttributes; }
    // Shows the attribute table panel on the layer (the current layer for null).
    void OpenAttributeTable(TLLayer* layer);
    // Shows the map in another coordinate system ("EPSG:28992", WKT, PROJ); the answer is the
    // line for the history.
    QString SetMapSystem(const QString& definition);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void buildDocks();
    void buildMenus();
    void buildStatusBar();
    void buildShellCommands();
    // Whether the tool in use holds something the user is drawing: a band with points.
    bool toolUnderWay() const;
    // Picks a tool; with `chooseLayer` the editing first moves to a layer of the tool's kind.
    void startTool(int index, bool chooseLayer);
    // The tool in use starts again, on the edit layer as it is now.
    void restartTool();
    void connectHost();
    void bindMapSignals(bool bind);
    void hostEvent(const TLHostEvent& event);
    void lineEntered(const QString& line);
    void openDialog();
    void chooseMapSystem();
    void undo();
    void redo();
    void updateEditState();
    void editLayerChanged();
    void showPointer(double x, double y);
    void showScale();
    // True when the window may close: no unsaved edits, or the user saved or discarded them.
    bool confirmClose();
    // False, having told the user and opened the table there, when a feature to be saved lacks
    // a value its layer requires.
    bool requiredValuesPresent();

    // TLEditorListener
    void OnOperationCommitted(const TLString& label) override;
    void OnOperationAborted(const TLString& label) override;
    void OnUndo(const TLString& label) override;
    void OnRedo(const TLString& label) override;

    std::unique_ptr<TLShellDocument> mDocument;
    std::unique_ptr<TLMapView> mView;
    std::unique_ptr<TLHostBuddy> mBuddy;
    std::unique_ptr<TLToolDispatcher> mDispatcher;
    TLMapCanvas* mCanvas;
    TLCommandWindow* mCommands = nullptr;
    TLToolPalette* mPalette = nullptr;
    TLLayerPanel* mLayers = nullptr;
    QAction* mUndo = nullptr;
    QAction* mRedo = nullptr;
    QAction* mSave = nullptr;
    QLabel* mCoordinates = nullptr;
    QLabel* mScale = nullptr;
    TLSnapSettings* mSnapSettings = nullptr;
    TLSnapToolBar* mSnapBar = nullptr;
    std::unique_ptr<TLShellCommands> mShellCommands;
    TLEditReporter* mReporter = nullptr;
    TLAttributeTable* mAttributes = nullptr;
    QDockWidget* mAttributeDock = nullptr;
};

}  // namespace TMObjects
