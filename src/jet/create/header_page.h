#pragma once

#include <cstdint>
#include <span>

#include "jet/value.h"

namespace jet::create {

// Fills page 0. `password`: up to 20 characters, Error(Limit) beyond; empty = none.
void writeHeaderPage(std::span<std::uint8_t> page, std::uint32_t databaseKey, const Text& password);

// The built-in accounts as this header's files store them: they are masked by bytes that hang together with
// the header's creation date.
enum class Account { Engine, Admin, Users, Group4 };
Bytes accountId(Account account);

}  // namespace jet::create
