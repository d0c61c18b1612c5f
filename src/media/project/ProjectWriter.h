#pragma once

#include "core/XMLable.h"

#include <iosfwd>
#include <string>

namespace KelMediaLib {

class Project;

/// Writes a project of the media model as a project file, the document that
/// the project reader reads back: the "Project" element with its source bin
/// and timeline, every object that may be pointed at with its "id", values
/// in text forms that read back unchanged (doubles to the same bits),
/// whatever the locale of the stream written to.
///
/// The writer holds a read lock of the project while it writes, and checks
/// the whole project before it writes a byte: a project refused is not
/// half written.
///
/// What the file can't express, and what the writer does about it:
/// - A media whose source isn't in the source bin: a reader finds the
///   source by the ident it wrote in the bin. Refused with
///   `KelMediaLibException`.
/// - An `AudioTransition`: the file has no element for it. Skipped, with
///   the links to it; the media around it are written.
/// - An edge modification without a parameter, or with one that a reader
///   doesn't know when it reads the edge (a parameter of an effect, of an
///   image transition, of another media): a reader finds the parameter by
///   ident among those it has read. Skipped; the edge's length stays.
/// - Effects other than `GenericEffect`, and effects on the kinds whose
///   element holds none (`AMFile`, `Callout`): skipped.
/// - A still whose start trims sum to less than minus its duration: a
///   reader replays the sum as an end trim that would make it negative.
///   The sum is written as minus the duration, the start of its source
///   stretch kept where the kind can say it (an `IMFile`).
/// The file has no place either for the kind of an image track (read back
/// as a visual track), for the scalar of a still, or for a slide's extent.
class ProjectWriter {
 public:
  /// Writes the whole document: the XML declaration and the "Project"
  /// element. Throws `KelMediaLibException` for a project refused above,
  /// having written nothing, and `IOException` when the stream fails.
  static void write(const Project& project, std::ostream& out);
  /// Writes the whole document into the file at `path`, created or
  /// replaced. A refused project leaves the file untouched; a file that
  /// can't be opened or written is an `IOException` naming it.
  static void write(const Project& project, const std::string& path);
  /// Writes the "Project" element alone, its tags at depth `depth`, to
  /// `options.out`, for a document that holds it under a root of its own
  /// and goes on numbering its idents with `options`. Same checks and lock;
  /// the stream is the caller's (`write` gives one in the classic locale).
  static void writeElement(const Project& project, XMLable::Options& options, int depth);
};

}  // namespace KelMediaLib
