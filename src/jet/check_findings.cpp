#include "jet/check_findings.h"

namespace jet {

PageOwners::Owner PageOwners::add(std::string name) {
  names_.push_back(std::move(name));
  return static_cast<Owner>(names_.size());
}

bool PageOwners::claim(std::uint32_t page, Owner owner) {
  if (page >= owners_.size()) {
    findings_.error("Page " + std::to_string(page) + " of " + names_[owner - 1] + " lies outside the file.");
    return false;
  }
  if (owners_[page] != 0 && owners_[page] != owner) {
    findings_.error("Page " + std::to_string(page) + " belongs to " + names_[owners_[page] - 1] + " and to " +
                    names_[owner - 1] + ".");
    return false;
  }
  owners_[page] = owner;
  return true;
}

bool PageOwners::claimOnce(std::uint32_t page, Owner owner) {
  if (page < owners_.size() && owners_[page] == owner) {
    findings_.error("Page " + std::to_string(page) + " stands twice in " + names_[owner - 1] + ".");
    return false;
  }
  return claim(page, owner);
}

std::string checkName(RowId row) {
  return "row " + std::to_string(row.page) + "/" + std::to_string(row.slot);
}

}  // namespace jet
