#include "platform/linux/QtPanels.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QPointer>
#include <QStandardPaths>

namespace tabulon {
namespace {

QString nameFilter(const FileKind& kind) {
    QStringList patterns;
    for (const std::string& extension : kind.extensions)
        patterns << "*." + QString::fromStdString(extension);
    if (patterns.isEmpty())
        patterns << "*";
    return QString::fromStdString(kind.label) + " (" + patterns.join(' ') + ")";
}

// Calls `done` with the chosen paths, or an empty list, after the dialog has ended. The dialog deletes
// itself. `done` may take long and handle events, so it is called from the main loop, when no function of the
// dialog runs.
void run(QFileDialog* dialog, QString& lastFolder, Panels::OpenDone done) {
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(dialog, &QFileDialog::finished,
                     [dialog, &lastFolder, window = QPointer<QWidget>(dialog->parentWidget()),
                      done = std::move(done)](int result) {
                         std::vector<std::string> paths;
                         if (result == QDialog::Accepted)
                             for (const QString& file : dialog->selectedFiles()) {
                                 paths.push_back(QFile::encodeName(file).toStdString());
                                 lastFolder = QFileInfo(file).absolutePath();
                             }
                         QMetaObject::invokeMethod(
                             qApp,
                             [window, done, paths] {
                                 // If a question of the panel ends at the same time, some window managers
                                 // leave no window active.
                                 if (window)
                                     window->activateWindow();
                                 done(paths);
                             },
                             Qt::QueuedConnection);
                     });
    dialog->open();
}

// Returns the default extension of the kind, or an empty text for a kind without extensions.
QString extensionOf(const FileKind& kind) {
    return kind.extensions.empty() ? QString() : QString::fromStdString(kind.extensions.front());
}

void setKind(QFileDialog& dialog, const FileKind& kind) {
    dialog.setNameFilter(nameFilter(kind));
    dialog.setDefaultSuffix(extensionOf(kind));
}

// Returns a valid file name: without slashes and control characters, and short enough for file systems.
QString fileName(const std::string& proposed, const FileKind& kind) {
    constexpr qsizetype kMostBytes = 240;
    QString name = QString::fromStdString(proposed).replace('/', '-');
    for (QChar& c : name)
        if (c.category() == QChar::Other_Control)
            c = ' ';
    while (QFile::encodeName(name).size() > kMostBytes)
        name.chop(name.back().isLowSurrogate() ? 2 : 1);
    const QString extension = extensionOf(kind);
    return extension.isEmpty() ? name : name + "." + extension;
}

// A save panel with an options area below the file name.
class OptionsPanel : public QFileDialog, public SavePanelControl {
public:
    OptionsPanel(QWidget* parent, const SavePanel& panel, const QString& folder)
        : QFileDialog(parent, QString::fromStdString(panel.message), folder), accessory_(panel.accessory) {
        setOption(QFileDialog::DontUseNativeDialog);
    }
    ~OptionsPanel() override { accessory_->setPanel(nullptr); }

    // The dialog replaces the extension of the name.
    void setAllowedFileType(const FileKind& kind) override { setKind(*this, kind); }

    // Adds the area. It contains the menu of formats, so the dialog's own menu of file types is hidden. In
    // the tab order the area is between the name and the buttons.
    void show(QWidget* area) {
        auto* grid = qobject_cast<QGridLayout*>(layout());
        if (!grid || !area)
            return;
        for (const char* replaced : {"fileTypeLabel", "fileTypeCombo"})
            if (auto* widget = findChild<QWidget*>(replaced))
                widget->hide();
        grid->addWidget(area, grid->rowCount(), 0, 1, grid->columnCount());
        auto* before = findChild<QWidget*>("fileNameEdit");
        for (QWidget* widget : area->findChildren<QWidget*>())
            if (before && widget->focusPolicy() & Qt::TabFocus) {
                setTabOrder(before, widget);
                before = widget;
            }
        accessory_->setPanel(this);
    }

private:
    const std::shared_ptr<PanelAccessory> accessory_;
};

} // namespace

QtPanels::QtPanels(WindowFinder windowFor, AccessoryViewMaker* views)
    : windowFor_(std::move(windowFor)), views_(views),
      lastFolder_(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)),
      lastSaveFolder_(lastFolder_) {}

QString QtPanels::startFolder(const std::string& wanted, const QString& last) {
    const QString folder = wanted.empty() ? last : QFile::decodeName(wanted.c_str());
    return QFileInfo(folder).isDir() ? folder : QDir::homePath(); // else its name becomes the file name
}

void QtPanels::beginOpenPanel(const OpenPanel& panel, OpenDone done) {
    auto* dialog = new QFileDialog(windowFor_(panel.document), QString::fromStdString(panel.message),
                                   startFolder(panel.directory, lastFolder_));
    dialog->setOption(QFileDialog::ReadOnly); // no new folders where files are only opened
    dialog->setFileMode(panel.allowsMultipleSelection ? QFileDialog::ExistingFiles
                                                      : QFileDialog::ExistingFile);
    dialog->setLabelText(QFileDialog::Accept, QString::fromStdString(panel.prompt));
    QStringList filters;
    for (const FileKind& kind : panel.kinds)
        filters << nameFilter(kind);
    if (!filters.isEmpty())
        dialog->setNameFilters(filters);
    if (!panel.selectedFile.empty())
        dialog->selectFile(QFile::decodeName(panel.selectedFile.c_str()));
    run(dialog, lastFolder_, std::move(done));
}

QFileDialog* QtPanels::makeSaveDialog(const SavePanel& panel) const {
    QWidget* window = windowFor_(panel.document);
    const QString folder = startFolder(panel.directory, lastSaveFolder_);
    if (!panel.accessory || !views_)
        return new QFileDialog(window, QString::fromStdString(panel.message), folder);
    auto* dialog = new OptionsPanel(window, panel, folder);
    dialog->show(views_->makeAccessoryView(panel.accessory));
    return dialog;
}

void QtPanels::beginSavePanel(const SavePanel& panel, SaveDone done) {
    QFileDialog* dialog = makeSaveDialog(panel);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setFileMode(QFileDialog::AnyFile);
    const QString mnemonic = dialog->testOption(QFileDialog::DontUseNativeDialog) ? "&" : "";
    dialog->setLabelText(QFileDialog::Accept, mnemonic + QString::fromStdString(panel.prompt));
    setKind(*dialog, panel.kind);
    dialog->selectFile(fileName(panel.proposedName, panel.kind));
    run(dialog, lastSaveFolder_, [done = std::move(done)](const std::vector<std::string>& paths) {
        done(paths.empty() ? std::nullopt : std::optional(paths.front()));
    });
}

} // namespace tabulon
