#pragma once

#include <concepts>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "jet/check.h"
#include "jet/error.h"
#include "jet/row_id.h"

namespace jet {

// Collects what a check finds; a file full of noise does not fill the memory with sentences.
class CheckFindings {
 public:
  explicit CheckFindings(CheckReport& report) : report_(report) {}

  CheckReport& report() { return report_; }
  void error(std::string sentence) { add(report_.errors, std::move(sentence)); }
  void remark(std::string sentence) { add(report_.remarks, std::move(sentence)); }

  // Runs a part of the check. False, and an error noted, if the file is damaged there. `where` is a text, or
  // makes one: in hot loops it is hardly ever needed. A failure of the system is no finding: it is thrown on.
  template <typename Where, std::invocable Part>
  bool attempt(const Where& where, Part&& part) {
    try {
      part();
      return true;
    } catch (const Error& damage) {
      if (damage.kind() != ErrorKind::Damaged && damage.kind() != ErrorKind::Truncated) throw;
      if constexpr (std::invocable<const Where&>) {
        error(where() + ": " + damage.what() + ".");
      } else {
        error(std::string(where) + ": " + damage.what() + ".");
      }
      return false;
    }
  }

 private:
  static constexpr std::size_t most = 500;

  static void add(std::vector<std::string>& list, std::string sentence) {
    if (list.size() < most) {
      list.push_back(std::move(sentence));
    } else if (list.size() == most) {
      list.emplace_back("There is more of this kind that is not listed.");
    }
  }

  CheckReport& report_;
};

// Who uses which page of the file.
class PageOwners {
 public:
  PageOwners(std::uint32_t pageCount, CheckFindings& findings) : owners_(pageCount), findings_(findings) {}

  // A name for an owner; claims of one owner agree with each other.
  using Owner = std::uint32_t;
  Owner add(std::string name);

  // Notes that `owner` uses a page. False, and an error noted, if it is another's or outside the file.
  bool claim(std::uint32_t page, Owner owner);
  // The same for pages that may be claimed only once: false also for the owner's second claim.
  bool claimOnce(std::uint32_t page, Owner owner);
  bool isOwned(std::uint32_t page) const { return owners_[page] != 0; }

 private:
  std::vector<Owner> owners_;  // 0: nobody
  std::vector<std::string> names_;
  CheckFindings& findings_;
};

// "row 17/3": page and slot.
std::string checkName(RowId row);

}  // namespace jet
