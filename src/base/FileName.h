#pragma once

#include <QString>

namespace vellora {

/// Makes any text fit to be one file or directory name: "/", ":" and control characters become "-", the result is cut
/// to 200 bytes of UTF-8 on a character border and is never empty, "." or "..".
QString sanitizedFileName(const QString& name);

/// The name to try at the given attempt: "stem.ext" first, then "stem (2).ext", "stem (3).ext" and so on. `extension`
/// may be empty.
QString numberedFileName(const QString& stem, const QString& extension, int attempt);

/// The first numbered name that nothing in `folder` has. Another program may take it before it is used; to write a new
/// file without that race use AtomicFile::writeNew.
QString freeFileName(const QString& folder, const QString& stem, const QString& extension);

/// A path as people write it: "~" for the home folder. An empty or root `home` stands for nothing.
QString pathBelowHome(const QString& path, const QString& home);

}  // namespace vellora
