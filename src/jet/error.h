#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>

namespace jet {

// The few ways in which the engine fails. Nothing leaves the engine in another form than `Error`.
enum class ErrorKind {
  FileNotFound,       // no such file
  AccessDenied,       // the system does not let us open or read it
  Busy,               // another program holds the file for itself
  Io,                 // the system failed while reading or writing
  NotADatabase,       // the content is not recognisable as a Jet database
  UnsupportedFormat,  // a newer or foreign relative: .accdb, Money
  PasswordRequired,   // the file carries a database password
  Truncated,          // the file ends before its pages do
  Damaged,            // a structure in the file contradicts the format
  NoSuchTable,
  NoSuchColumn,
  Sql,           // the query text is not understood
  TypeMismatch,  // values of types that cannot be compared or stored
  Constraint,    // a row breaks a rule of its table
  Limit,         // larger than the format allows
  ReadOnly,      // this version of the format, or this file, is read but never written
  NotWritable,   // a table with something that cannot be maintained rightly; the reason names it
  Conflict,      // another program has changed or deleted the row since it was read
  DiskFull,
  Interrupted,  // a save failed half way and could not be undone yet; the next opening does it
};

// `what()` is an English sentence for developers; the German text for a clerk is made in database/.
class Error : public std::runtime_error {
 public:
  Error(ErrorKind kind, const std::string& reason, std::optional<std::uint32_t> page = std::nullopt)
      : std::runtime_error(page ? reason + " (page " + std::to_string(*page) + ")" : reason),
        kind_(kind),
        reason_(reason),
        page_(page) {}

  ErrorKind kind() const { return kind_; }
  // The bare reason, without the page number. For Sql: what was not understood, UTF-8.
  const std::string& reason() const { return reason_; }
  std::optional<std::uint32_t> page() const { return page_; }

 private:
  ErrorKind kind_;
  std::string reason_;
  std::optional<std::uint32_t> page_;
};

}  // namespace jet
