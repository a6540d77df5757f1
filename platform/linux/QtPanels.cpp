#include "platform/linux/QtPanels.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QStandardPaths>

namespace tabulon {
namespace {

QString nameFilter(const FileKind& kind) {
    QStringList patterns;
    for (const std::string& extension : kind.extensions)
        patterns << "*." + QString::fromStdString(extension);
    return QString::fromStdString(kind.label) + " (" + patterns.join(' ') + ")";
}

// Calls `done` with the chosen paths, or none, when the dialog ends. The dialog deletes itself.
void run(QFileDialog* dialog, QString& lastFolder, Panels::OpenDone done) {
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(dialog, &QFileDialog::finished,
                     [dialog, &lastFolder, done = std::move(done)](int result) {
                         std::vector<std::string> paths;
                         if (result == QDialog::Accepted)
                             for (const QString& file : dialog->selectedFiles()) {
                                 paths.push_back(QFile::encodeName(file).toStdString());
                                 lastFolder = QFileInfo(file).absolutePath();
                             }
                         done(paths);
                     });
    dialog->open();
}

} // namespace

QtPanels::QtPanels(WindowFinder windowFor)
    : windowFor_(std::move(windowFor)),
      lastFolder_(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)) {}

QString QtPanels::startFolder(const std::string& wanted) const {
    const QString folder = wanted.empty() ? lastFolder_ : QFile::decodeName(wanted.c_str());
    return QFileInfo(folder).isDir() ? folder : QDir::homePath(); // else its name is taken for a file's
}

void QtPanels::beginOpenPanel(const OpenPanel& panel, OpenDone done) {
    auto* dialog = new QFileDialog(windowFor_(panel.document), QString::fromStdString(panel.message),
                                   startFolder(panel.directory));
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

void QtPanels::beginSavePanel(const SavePanel& panel, SaveDone done) {
    auto* dialog = new QFileDialog(windowFor_(panel.document), QString::fromStdString(panel.message),
                                   startFolder(panel.directory));
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setFileMode(QFileDialog::AnyFile);
    dialog->setLabelText(QFileDialog::Accept, QString::fromStdString(panel.prompt));
    dialog->setNameFilter(nameFilter(panel.kind));
    const QString extension = QString::fromStdString(panel.kind.extensions.front());
    dialog->setDefaultSuffix(extension);
    QString name = QString::fromStdString(panel.proposedName);
    name.replace('/', '-');
    dialog->selectFile(name + "." + extension);
    run(dialog, lastFolder_, [done = std::move(done)](const std::vector<std::string>& paths) {
        done(paths.empty() ? std::nullopt : std::optional(paths.front()));
    });
}

} // namespace tabulon
