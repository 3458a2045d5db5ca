#pragma once

#include <QString>
#include <QStringList>

#include <filesystem>
#include <vector>

namespace pelvanto::test {

// The lines of a UTF-8 file without their line feeds; an absent file is std::runtime_error.
std::vector<QString> zeilenLesen(const std::filesystem::path& datei);

// The tab-separated fields of a line, escapes resolved: \t \n \r \0 \\ and \uXXXX. A field of just \N (Null)
// becomes a null QString; every other field is not null.
QStringList felderLesen(const QString& zeile);

}  // namespace pelvanto::test
