// What a save does besides writing the document: the dated backup and the HTML copy. Neither can make the
// save fail, and their errors are not reported to the user.
#pragma once

#include "app/VersionStore.h"
#include "model/Document.h"
#include "platform/Platform.h"
#include "window/ViewController.h"

namespace tabulon {

/// Copies the document's file, which the save is about to replace, to "NAME-yyyy-MM-dd.EXTENSION" in the
/// backup folder, or else in the folder for documents. Does nothing without a folder, and for a document
/// without a file. There is one backup for each document and day: a later one replaces it. If the backup's
/// path has a file that is no such backup of this document, that file is first kept in `versions`; if that
/// fails, it is logged and no backup is made.
void makeBackup(const Document& document, const Platform& platform, VersionStore& versions);

/// Writes the document as HTML to the file that the user has chosen for it. Does nothing without such a file,
/// and if the document cannot be written as HTML.
void saveCopyHTML(const ViewController& controller, const Platform& platform);

/// Runs both, in this order, as the settings "MakeBackups" and "SaveAsHTML" say.
void runSaveTasks(const ViewController& controller, const Platform& platform, VersionStore& versions);

} // namespace tabulon
