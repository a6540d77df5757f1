// What a save does besides writing the document: the dated backup and the HTML copy. Neither can make the
// save fail; their errors are told to nobody.
#pragma once

#include "app/VersionStore.h"
#include "model/Document.h"
#include "platform/Platform.h"
#include "window/ViewController.h"

namespace tabulon {

/// Copies the document's file as it is on disk, the version that the save is about to replace, to
/// "NAME-yyyy-MM-dd.EXTENSION" in the backup folder, else in the folder for documents; with neither, or for a
/// document without a file, it does nothing. One backup a document and day: a later one replaces it. A file
/// at its path that is not such a backup of this document goes into `versions` first; where that fails there
/// is no backup.
void makeBackup(const Document& document, const Platform& platform, VersionStore& versions);

/// Writes the document as HTML to the file that was chosen for it; without one it does nothing.
void saveCopyHTML(const ViewController& controller, const Platform& platform);

/// Both, as the settings "MakeBackups" and "SaveAsHTML" say, in this order.
void runSaveTasks(const ViewController& controller, const Platform& platform, VersionStore& versions);

} // namespace tabulon
