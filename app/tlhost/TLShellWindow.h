#pragma once

#include <QMainWindow>
#include <memory>

#include "tlmap/TLEditor.h"

class QAction;
class QLabel;

namespace TMObjects {

class TLCommandWindow;
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

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void buildDocks();
    void buildMenus();
    void buildStatusBar();
    void connectHost();
    void bindMapSignals(bool bind);
    void hostEvent(const TLHostEvent& event);
    void lineEntered(const QString& line);
    void openDialog();
    void undo();
    void redo();
    void updateEditState();
    void editLayerChanged();
    void showPointer(double x, double y);
    void showScale();
    // True when the window may close: no unsaved edits, or the user saved or discarded them.
    bool confirmClose();

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
};

}  // namespace TMObjects
