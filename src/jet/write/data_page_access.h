#pragma once

#include <cstdint>

#include "jet/encode/data_page_writer.h"
#include "jet/page_file.h"
#include "jet/transaction.h"

namespace jet::write {

// Pages with slots of an existing file, for changing. `DataPageWriter` trusts its page, so everything that it
// relies on is checked here first: kind, owner, slots that lie in order without overlap, and the free bytes
// that the page states.

// For looking only. Errors: Damaged.
PageRef checkedDataPage(const PageFile& file, std::uint32_t number, std::uint32_t owner, std::uint32_t from);
// The same page, to be changed.
encode::DataPageWriter changeDataPage(Transaction& transaction, std::uint32_t number, std::uint32_t owner,
                                      std::uint32_t from);

// Whether a checked page takes a row of this length.
bool hasRoom(const Page& page, std::size_t length);

// The owner that a page with usage maps must name.
inline std::uint32_t mapPageOwner(std::uint32_t number) { return number == 1 ? 1 : 0; }

}  // namespace jet::write
