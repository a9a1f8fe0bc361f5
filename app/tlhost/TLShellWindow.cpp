#include "TLShellWindow.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDockWidget>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QStatusBar>
#include <cmath>

#include "TLAttributeTable.h"
#include "TLCommandWindow.h"
#include "TLEditLayerChooser.h"
#include "TLEditReporter.h"
#include "TLEscapeRouter.h"
#include "TLLayerPanel.h"
#include "TLMapCanvas.h"
#include "TLMapSystem.h"
#include "TLOpenProgress.h"
#include "TLPgOpenDialog.h"
#include "TLRequiredValues.h"
#include "TLShellCommands.h"
#include "TLShellDocument.h"
#include "TLShellText.h"
#include "TLShellToolTable.h"
#include "TLSnapSettings.h"
#include "TLSnapToolBar.h"
#include "TLToolPalette.h"
#include "hostkit/TLGuardedApplication.h"
#include "hostkit/TLHostBuddy.h"
#include "hostkit/TLToolDispatcher.h"
#include "tlmap/TLFeatureLayer.h"
#include "tlmap/TLMapView.h"
#include "tlmap/TLRubberBand.h"
#include "tmgis/TLPgConnection.h"

namespace TMObjects {

namespace {

// How long a notice stays in the status bar.
constexpr int kNoticeMilliseconds = 10000;
// Metres in one degree on the equator: enough to show a scale for a map in degrees.
constexpr double kMetresPerDegree = 111319.49;

const char* const kOpenFilters =
    "All data (*.gpkg *.shp *.geojson *.json *.tif *.tiff *.img *.vrt *.asc *.png *.jpg);;"
    "GeoPackage (*.gpkg);;Shapefile (*.shp);;GeoJSON (*.geojson *.json);;"
    "Rasters (*.tif *.tiff *.img *.vrt *.asc *.png *.jpg);;All files (*)";

}  // namespace

TLShellWindow::TLShellWindow(QWidget* parent)
    : QMainWindow(parent),
      mDocument(std::make_unique<TLShellDocument>()),
      mView(std::make_unique<TLMapView>(mDocument->MapRef())),
      mBuddy(std::make_unique<TLHostBuddy>(mView.get())),
      mDispatcher(std::make_unique<TLToolDispatcher>(mBuddy.get())),
      mCanvas(new TLMapCanvas(this)),
      mSnapSettings(new TLSnapSettings(this)),
      mShellCommands(std::make_unique<TLShellCommands>()) {
    setWindowTitle(QStringLiteral("tlhost[*]"));
    setObjectName("shellWindow");
    mCanvas->setObjectName("mapCanvas");
    setCentralWidget(mCanvas);
    mCanvas->SetView(mView.get());
    mCanvas->SetDispatcher(mDispatcher.get());
    buildDocks();
    buildMenus();
    buildStatusBar();
    buildShellCommands();
    mSnapBar = new TLSnapToolBar(mSnapSettings, this);
    addToolBar(Qt::TopToolBarArea, mSnapBar);
    mReporter = new TLEditReporter(mDocument->Map(), this);
    mReporter->SetScratchPointLayerSource([this] { return mBuddy->ScratchPointLayerId(); });
    connect(mReporter, &TLEditReporter::reported, mCommands, &TLCommandWindow::AppendHistory);
    new TLEscapeRouter(this, [this] { Escape(); });
    connectHost();
    mDocument->Map()->editor()->AddListener(this);
    resize(1280, 860);
    updateEditState();
}

TLShellWindow::~TLShellWindow() {
    TLGuardedApplication::SetFailureHandler(nullptr);
    // The reporter listens to the map's editor, which goes with the document before the
    // window's children are deleted.
    delete mReporter;
    mReporter = nullptr;
    mAttributes->Release();
    // The tool lets go of its bands and the command line while the view is still there.
    mDispatcher->Deactivate();
    bindMapSignals(false);
    mDocument->Map()->editor()->RemoveListener(this);
    mCanvas->SetDispatcher(nullptr);
    mCanvas->SetView(nullptr);
}

void TLShellWindow::buildDocks() {
    mCommands = new TLCommandWindow(this);
    auto* commandDock = new QDockWidget(tr("Command"), this);
    commandDock->setObjectName("commandDock");
    commandDock->setWidget(mCommands);
    addDockWidget(Qt::BottomDockWidgetArea, commandDock);

    mLayers = new TLLayerPanel(this);
    mLayers->SetMap(mDocument->Map());
    auto* layerDock = new QDockWidget(tr("Layers"), this);
    layerDock->setObjectName("layerDock");
    layerDock->setWidget(mLayers);
    addDockWidget(Qt::LeftDockWidgetArea, layerDock);

    mPalette = new TLToolPalette(this);
    auto* toolDock = new QDockWidget(tr("Tools"), this);
    toolDock->setObjectName("toolDock");
    toolDock->setWidget(mPalette);
    // Layers above tools in one column on the left: the layer list is short, the palette long,
    // and the map keeps the rest of the window's width.
    addDockWidget(Qt::LeftDockWidgetArea, toolDock);
    splitDockWidget(layerDock, toolDock, Qt::Vertical);

    mAttributes = new TLAttributeTable(this);
    mAttributes->SetView(mView.get());
    mAttributeDock = new QDockWidget(tr("Attributes"), this);
    mAttributeDock->setObjectName("attributeDock");
    mAttributeDock->setWidget(mAttributes);
    addDockWidget(Qt::RightDockWidgetArea, mAttributeDock);
    // Out of the way until asked for: the map keeps its width.
    mAttributeDock->hide();
    resizeDocks({layerDock, toolDock}, {180, 420}, Qt::Vertical);
    resizeDocks({layerDock}, {330}, Qt::Horizontal);
    resizeDocks({commandDock}, {200}, Qt::Vertical);
}

void TLShellWindow::buildMenus() {
    QMenu* file = menuBar()->addMenu(tr("&File"));
    file->addAction(tr("&Open Data..."), this, &TLShellWindow::openDialog, QKeySequence::Open);
    // A database's tables open as a data source named by its connection.
    file->addAction(tr("Open &PostGIS Layers..."), this, [this] {
        TLPgOpenDialog dialog(this);
        if (dialog.exec() == QDialog::Accepted) OpenData(ToQString(dialog.Connection()));
    });
    mSave = file->addAction(tr("&Save Edits"), this, &TLShellWindow::SaveEdits, QKeySequence::Save);
    file->addSeparator();
    file->addAction(tr("&Quit"), this, &QWidget::close, QKeySequence::Quit);

    QMenu* edit = menuBar()->addMenu(tr("&Edit"));
    mUndo = edit->addAction(tr("&Undo"), this, &TLShellWindow::undo, QKeySequence::Undo);
    mRedo = edit->addAction(tr("&Redo"), this, &TLShellWindow::redo, QKeySequence::Redo);
    // Saving is where an edit session ends, so it stands with undo and redo as well.
    edit->addSeparator();
    edit->addAction(mSave);

    QMenu* view = menuBar()->addMenu(tr("&View"));
    view->addAction(tr("Zoom to &Full Extent"), mCanvas, &TLMapCanvas::ZoomToFullExtent,
                    QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_F));
    view->addAction(tr("Zoom to &Layer"), this,
                    [this] { mCanvas->ZoomToLayer(mDocument->Map()->GetCurrentLayer().get()); });
    view->addAction(
        tr("Zoom &In"), this, [this] { mCanvas->ZoomBy(2.0, mCanvas->rect().center()); },
        QKeySequence::ZoomIn);
    view->addAction(
        tr("Zoom &Out"), this, [this] { mCanvas->ZoomBy(0.5, mCanvas->rect().center()); },
        QKeySequence::ZoomOut);
    view->addSeparator();
    view->addAction(tr("Map &Coordinate System..."), this, &TLShellWindow::chooseMapSystem);
    view->addSeparator();
    for (QDockWidget* dock : findChildren<QDockWidget*>())
        view->addAction(dock->toggleViewAction());

    QMenu* tools = menuBar()->addMenu(tr("&Tools"));
    mPalette->FillMenu(tools);
    tools->addSeparator();
    // No shortcut: Escape reaches the tool first, wherever the focus is (TLEscapeRouter).
    tools->addAction(tr("&Leave Tool\tEsc"), this, &TLShellWindow::LeaveTool);
}

void TLShellWindow::buildStatusBar() {
    mCoordinates = new QLabel(this);
    mCoordinates->setObjectName("coordinateLabel");
    mCoordinates->setMinimumWidth(260);
    mScale = new QLabel(this);
    mScale->setObjectName("scaleLabel");
    mScale->setMinimumWidth(120);
    statusBar()->addPermanentWidget(mCoordinates);
    statusBar()->addPermanentWidget(mScale);
}

void TLShellWindow::connectHost() {
    // Dialogs of the tools find the main window through this id.
    mBuddy->SetMainWindowId(std::uintptr_t(winId()));
    mBuddy->SetModifiersSource([] { return int(QGuiApplication::keyboardModifiers()); });
    mBuddy->AddListener([this](const TLHostEvent& event) { hostEvent(event); });
    mDispatcher->SetFailureListener([this](const std::string& what, const std::string& entry) {
        mCommands->AppendHostLine(
            tr("The tool failed in %1 and its changes were undone: %2")
                .arg(QString::fromStdString(entry), QString::fromStdString(what)));
        mCanvas->RefreshAll();
    });
    TLGuardedApplication::SetFailureHandler(
        [this](const std::string& what) { mDispatcher->ReportFailure("a dialog", what); });
    bindMapSignals(true);
    connect(mCommands, &TLCommandWindow::lineEntered, this, &TLShellWindow::lineEntered);
    connect(mCanvas, &TLMapCanvas::textTyped, mCommands, &TLCommandWindow::Type);
    connect(mCanvas, &TLMapCanvas::notice, mCommands, &TLCommandWindow::AppendHostLine);
    connect(mCanvas, &TLMapCanvas::pointerMoved, this, &TLShellWindow::showPointer);
    connect(mCanvas, &TLMapCanvas::viewChanged, this, &TLShellWindow::showScale);
    connect(mPalette, &TLToolPalette::toolPicked, this, &TLShellWindow::PickTool);
    connect(mLayers, &TLLayerPanel::visibilityChanged, mCanvas, [this] { mCanvas->RefreshAll(); });
    connect(mLayers, &TLLayerPanel::orderChanged, mCanvas, [this] { mCanvas->RefreshAll(); });
    connect(mLayers, &TLLayerPanel::editLayerChanged, this, &TLShellWindow::editLayerChanged);
    connect(mLayers, &TLLayerPanel::zoomToLayerRequested, mCanvas, &TLMapCanvas::ZoomToLayer);
    connect(mLayers, &TLLayerPanel::attributeTableRequested, this,
            &TLShellWindow::OpenAttributeTable);
    connect(mCanvas, &TLMapCanvas::selectionRefreshed, mAttributes, &TLAttributeTable::SyncFromMap);
    connect(mAttributes, &TLAttributeTable::refused, mCommands, &TLCommandWindow::AppendHostLine);
}

void TLShellWindow::bindMapSignals(bool bind) {
    // Tools insert scratch layers and pick current layers themselves; the panel follows the map
    // rather than what the shell last did to it.
    TLMap* map = mDocument->Map();
    TLString key;
    key.Format("%p shell", static_cast<void*>(this));
    if (!bind) {
        map->layerAdded.unbind(key);
        map->layerRemoved.unbind(key);
        map->currentLayerChanged.unbind(key);
        return;
    }
    const auto layersChanged = [this](void*, TLEvent*) {
        if (mReporter) mReporter->Attach();
        mAttributes->ReloadLayers();
        mLayers->Reload();
        mCanvas->RefreshAll();
    };
    map->layerAdded.bind(key, layersChanged);
    map->layerRemoved.bind(key, layersChanged);
    map->currentLayerChanged.bind(key, [this](void*, TLEvent*) { mLayers->Sync(); });
}

void TLShellWindow::hostEvent(const TLHostEvent& event) {
    switch (event.kind) {
        case TLHostEvent::Prompt:
            return mCommands->SetPrompt(ToQString(event.text));
        case TLHostEvent::Message:
            return mCommands->AppendHistory(ToQString(event.text));
        case TLHostEvent::Notice:
            return statusBar()->showMessage(ToQString(event.text), kNoticeMilliseconds);
        case TLHostEvent::Cursor:
            if (event.value >= 0 && event.value <= Qt::LastCursor)
                mCanvas->setCursor(Qt::CursorShape(event.value));
            return;
        case TLHostEvent::Register:
            return mCommands->SetReceiver(ToQString(event.text));
        case TLHostEvent::Unregister:
            return mCommands->SetReceiver(QString());
        case TLHostEvent::Edited:
            // An edit outside a finished command names no rectangle: all of it is drawn again.
            mCanvas->RefreshAll();
            return updateEditState();
        case TLHostEvent::ToolEnabled:
            // A tool that gives up tells the host first; its mark goes, it is no longer in use.
            if (event.value == 0) mPalette->SetActive(-1);
            return;
    }
}

// ---- tools ----

void TLShellWindow::PickTool(int index) {
    startTool(index, true);
}

void TLShellWindow::restartTool() {
    if (mDispatcher->ActiveTool() && mPalette->Active() >= 0) startTool(mPalette->Active(), false);
}

void TLShellWindow::startTool(int index, bool chooseLayer) {
    TLTool* tool = TLShellToolTable::PoolTool(index);
    if (!tool) {
        statusBar()->showMessage(
            tr("The plugin has no tool %1.")
                .arg(index >= 0 && index < TLShellToolTable::Count()
                         ? TLShellToolTable::Entries()[std::size_t(index)].className
                         : "?"),
            kNoticeMilliseconds);
        return;
    }
    // Each tool sets the cursor it wants; one that sets none gets the plain arrow.
    mCanvas->setCursor(Qt::ArrowCursor);
    // The tool in use lets go before the editing moves to a layer the new one can draw on.
    mDispatcher->Deactivate();
    if (chooseLayer) {
        const auto& entry = TLShellToolTable::Entries()[std::size_t(index)];
        const QString switched = TLEditLayerChooser::Prepare(mDocument->Map(), entry.className,
                                                             TLToolPalette::Label(entry.className));
        if (!switched.isEmpty()) {
            mCommands->AppendHostLine(switched);
            mLayers->Sync();
        }
    }
    mDispatcher->Activate(tool);
    // A tool that found no layer to work on leaves itself at once.
    const bool inUse = mDispatcher->ActiveTool() == tool && tool->isActive();
    mPalette->SetActive(inUse ? index : -1);
    if (!inUse && !mDocument->Map()->editor()->edit_layer())
        statusBar()->showMessage(tr("No layer is being edited: tick the Editing box of a layer."),
                                 kNoticeMilliseconds);
    mCanvas->update();
}

void TLShellWindow::LeaveTool() {
    mDispatcher->Deactivate();
    mPalette->SetActive(-1);
    mCanvas->setCursor(Qt::ArrowCursor);
    mCanvas->update();
}

bool TLShellWindow::toolUnderWay() const {
    for (const TLRubberBand* band : mView->RubberBands())
        if (band->GetCount() > 0) return true;
    return false;
}

void TLShellWindow::Escape() {
    QLineEdit* input = mCommands->Input();
    if (!input->text().isEmpty()) {
        input->clear();
        return;
    }
    TLTool* tool = mDispatcher->ActiveTool();
    if (!tool || !tool->isActive()) return LeaveTool();
    const bool underWay = toolUnderWay();
    const bool taken = mDispatcher->KeyDown(Qt::Key_Escape);
    if (!underWay) return LeaveTool();
    // A tool without an Escape of its own drops what it draws by starting again, as if it had
    // just been picked; the next Escape finds nothing under way and leaves it.
    if (!taken) restartTool();
    mCanvas->update();
}

void TLShellWindow::buildShellCommands() {
    mShellCommands->Add(
        QStringLiteral("SNAP"), tr("[ON|OFF|VERTEX ON|OFF|SEGMENT ON|OFF|pixels] snapping"),
        [this](const QStringList& words) { return mSnapSettings->RunCommand(words); });
    mShellCommands->Add(
        QStringLiteral("CRS"), tr("[EPSG:n] the map's coordinate system"),
        [this](const QStringList& words) {
            if (words.isEmpty())
                return tr("Map coordinate system: %1.").arg(TLMapSystem::Describe(mView.get()));
            return SetMapSystem(words.join(QLatin1Char(' ')));
        });
    mShellCommands->Add(QStringLiteral("TABLE"), tr("the attribute table of the current layer"),
                        [this](const QStringList&) {
                            OpenAttributeTable(nullptr);
                            return mAttributes->Layer()
                                       ? tr("Attributes of %1.")
                                             .arg(ToQString(mAttributes->Layer()->GetLayerName()))
                                       : tr("No feature layer to show.");
                        });
    mShellCommands->Add(
        QStringLiteral("HELP"), tr("the shell's commands"), [this](const QStringList&) {
            return tr("Shell commands (an apostrophe in front runs them while a tool waits): %1")
                .arg(mShellCommands->Help().join(QStringLiteral("; ")));
        });
}

void TLShellWindow::lineEntered(const QString& line) {
    // The history keeps what was asked and what was answered, as a transcript does.
    const QString prompt = mCommands->Prompt();
    mCommands->AppendHistory(prompt.isEmpty() ? QStringLiteral("> %1").arg(line)
                                              : QStringLiteral("%1 %2").arg(prompt, line));
    const bool waiting = mBuddy->RegisteredTool() != nullptr;
    if (mShellCommands->Claims(line, waiting)) {
        mCommands->AppendHistory(mShellCommands->Run(line));
        return;
    }
    if (!waiting) {
        mCommands->AppendHistory(tr("No command is waiting for typed input: pick a tool, or type "
                                    "one of %1.")
                                     .arg(mShellCommands->Names()));
        return;
    }
    mDispatcher->TypeLine(ToTLString(line));
    mCanvas->update();
}

void TLShellWindow::editLayerChanged() {
    // Tools take the edit layer when they are activated; the one in use starts again on the
    // layer the user chose, and says so if it cannot draw there.
    restartTool();
}

// ---- data ----

bool TLShellWindow::OpenData(const QString& path) {
    const bool first = mDocument->Map()->GetLayerCount() == 0;
    // A database is named by its connection, shown without its password.
    const QString name =
        TLPgConnection::Names(ToTLString(path))
            ? QString::fromStdString(TLPgConnection::Redacted(ToTLString(path).toStdString()))
            : QFileInfo(path).fileName();
    QString error;
    TLOpenProgress progress(this, name);
    if (!mDocument->Open(path, error, progress.Listener())) {
        QMessageBox::warning(this, tr("Open Data"), error);
        return false;
    }
    for (const QString& note : mDocument->Notes()) mCommands->AppendHostLine(note);
    const bool hadEditLayer = mDocument->Map()->editor()->edit_layer() != nullptr;
    mDocument->ChooseEditLayer();
    mLayers->Reload();
    if (first) mCanvas->ZoomToFullExtent();
    mCanvas->RefreshAll();
    setWindowTitle(QStringLiteral("tlhost - %1[*]").arg(name));
    if (!hadEditLayer && mDocument->Map()->editor()->edit_layer()) editLayerChanged();
    return true;
}

void TLShellWindow::openDialog() {
    const QString path =
        QFileDialog::getOpenFileName(this, tr("Open Data"), QString(), tr(kOpenFilters));
    if (!path.isEmpty()) OpenData(path);
}

QString TLShellWindow::SetMapSystem(const QString& definition) {
    QString error;
    if (!TLMapSystem::Apply(mView.get(), definition, error)) return error;
    // What a tool holds is in the old system's coordinates: it starts again in the new one.
    restartTool();
    mCanvas->RefreshAll();
    showScale();
    return tr("Map coordinate system: %1.").arg(TLMapSystem::Describe(mView.get()));
}

void TLShellWindow::chooseMapSystem() {
    bool chosen = false;
    const QString definition = QInputDialog::getItem(
        this, tr("Map Coordinate System"), tr("Show the map in (EPSG:n, WKT or PROJ text):"),
        TLMapSystem::Choices(mView.get()), 0, true, &chosen);
    if (chosen && !definition.trimmed().isEmpty())
        mCommands->AppendHistory(SetMapSystem(definition));
}

void TLShellWindow::OpenAttributeTable(TLLayer* layer) {
    if (!layer) layer = mDocument->Map()->GetCurrentLayer().get();
    if (auto* features = dynamic_cast<TLFeatureLayer*>(layer)) mAttributes->ShowLayer(features);
    mAttributeDock->show();
    mAttributeDock->raise();
}

bool TLShellWindow::requiredValuesPresent() {
    for (TLFeatureLayer* layer : mDocument->UnsavedLayers()) {
        const TLRequiredValues::Missing missing =
            TLRequiredValues::FirstMissing(layer, TLRequiredValues::RequiredFields(layer));
        if (missing.id < 0) continue;
        const QString name = ToQString(layer->GetLayerName());
        mCommands->AppendHostLine(tr("Not saved: feature %1 of %2 has no value for %3, which the "
                                     "layer requires. Type it in the attribute table and save "
                                     "again.")
                                      .arg(missing.id)
                                      .arg(name, missing.field));
        OpenAttributeTable(layer);
        mAttributes->EditCell(missing.id, missing.field);
        return false;
    }
    return true;
}

bool TLShellWindow::SaveEdits() {
    if (!requiredValuesPresent()) return false;
    QString error;
    const bool saved = mDocument->SaveEdits(error);
    if (!saved)
        QMessageBox::warning(this, tr("Save Edits"), error);
    else
        statusBar()->showMessage(tr("Edits saved."), kNoticeMilliseconds);
    updateEditState();
    return saved;
}

// ---- undo ----

void TLShellWindow::undo() {
    mDocument->Map()->editor()->Undo();
}

void TLShellWindow::redo() {
    mDocument->Map()->editor()->Redo();
}

void TLShellWindow::updateEditState() {
    TLEditor* editor = mDocument->Map()->editor();
    const bool idle = !editor->IsOperationOpen();
    mUndo->setEnabled(idle && editor->CanUndo());
    mRedo->setEnabled(idle && editor->CanRedo());
    mUndo->setText(editor->CanUndo() ? tr("&Undo %1").arg(ToQString(editor->UndoLabel()))
                                     : tr("&Undo"));
    mRedo->setText(editor->CanRedo() ? tr("&Redo %1").arg(ToQString(editor->RedoLabel()))
                                     : tr("&Redo"));
    const bool unsaved = mDocument->HasUnsavedEdits();
    mSave->setEnabled(unsaved);
    setWindowModified(unsaved);
}

void TLShellWindow::OnOperationCommitted(const TLString&) {
    updateEditState();
}

void TLShellWindow::OnOperationAborted(const TLString&) {
    updateEditState();
}

void TLShellWindow::OnUndo(const TLString&) {
    // Undo does not say where its features lay; the whole map is drawn again.
    mCanvas->RefreshAll();
    updateEditState();
}

void TLShellWindow::OnRedo(const TLString&) {
    mCanvas->RefreshAll();
    updateEditState();
}

// ---- status bar ----

void TLShellWindow::showPointer(double x, double y) {
    const double resolution = mView->GetDisplayTransform()->mResolution;
    // As many decimals as make a pixel's difference, and no more.
    const int decimals =
        resolution > 0 ? std::max(0, std::min(8, int(std::ceil(-std::log10(resolution))))) : 2;
    mCoordinates->setText(QStringLiteral("%1, %2").arg(QString::number(x, 'f', decimals),
                                                       QString::number(y, 'f', decimals)));
}

void TLShellWindow::showScale() {
    const TLDisplayTransform* t = mView->GetDisplayTransform();
    double ratio = t->GetScaleRatio();
    if (t->mUnits == TLDecimalDegrees) ratio *= kMetresPerDegree;
    mScale->setText(std::isfinite(ratio) && ratio > 0
                        ? QStringLiteral("1:%L1").arg(std::llround(ratio))
                        : QString());
}

// ---- closing ----

bool TLShellWindow::confirmClose() {
    if (!mDocument->HasUnsavedEdits()) return true;
    QMessageBox box(QMessageBox::Warning, tr("Unsaved Edits"),
                    tr("The edits to %1 are not saved.")
                        .arg(mDocument->UnsavedLayerNames().join(QStringLiteral(", "))),
                    QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, this);
    box.setInformativeText(tr("Save them before closing?"));
    box.setDefaultButton(QMessageBox::Save);
    box.setEscapeButton(QMessageBox::Cancel);
    switch (box.exec()) {
        case QMessageBox::Save:
            return SaveEdits();
        case QMessageBox::Discard:
            return true;
        default:
            return false;
    }
}

void TLShellWindow::closeEvent(QCloseEvent* event) {
    if (!confirmClose()) {
        event->ignore();
        return;
    }
    mDispatcher->Deactivate();
    mPalette->SetActive(-1);
    event->accept();
}

}  // namespace TMObjects
