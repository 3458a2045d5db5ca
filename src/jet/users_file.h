#pragma once

#include <filesystem>

#include "jet/file.h"

namespace jet {

// Whether a program that shares the database through Access's engine has it open: each user holds a lock on
// a byte of NAME.ldb, behind its end. A left-over file without locks proves nothing.
bool hasUsers(const FileSystem& files, const std::filesystem::path& database);

}  // namespace jet
