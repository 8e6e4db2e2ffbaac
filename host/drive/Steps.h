#pragma once

#include <QString>
#include <QStringList>

namespace host {

/// A command's argument in quotes.
QString Quoted(const QString& text);

/// What an agent does, each as the driver's commands for it. The demo, the long day of work and the tests of
/// the program are made of these.
namespace steps {

QStringList OpenPhotos();
QStringList EnterListing(const QString& number);
/// Chooses files to import; the first one's crop window then waits.
QStringList OpenFiles(const QStringList& paths);
QStringList DropPhotos(const QStringList& paths);
/// Captures the photo in the crop window, with a description unless that is "".
QStringList Capture(const QString& description = {});
/// Leaves the search with its rows open.
QStringList SearchOwner(const QString& owner);
/// Leaves the prompt for a listing number open, into which this is typed.
QStringList AskForDocuments(const QString& typed);
QStringList OpenDocuments(const QString& number);
/// Leaves the builder open.
QStringList BeginPdf();
/// What is added from now on becomes black and white.
QStringList ChooseBlackAndWhite();
QStringList EndPdf(const QString& description);

}  // namespace steps

}  // namespace host
