#include "jet/check_findings.h"

namespace jet {

namespace {

void appendUtf8(char32_t code, std::string& target) {
  const auto put = [&](char32_t bits) { target += static_cast<char>(static_cast<unsigned char>(bits)); };
  if (code < 0x80) {
    put(code);
  } else if (code < 0x800) {
    put(0xC0 | code >> 6);
    put(0x80 | (code & 0x3F));
  } else if (code < 0x10000) {
    put(0xE0 | code >> 12);
    put(0x80 | (code >> 6 & 0x3F));
    put(0x80 | (code & 0x3F));
  } else {
    put(0xF0 | code >> 18);
    put(0x80 | (code >> 12 & 0x3F));
    put(0x80 | (code >> 6 & 0x3F));
    put(0x80 | (code & 0x3F));
  }
}

}  // namespace

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

std::string checkName(const Text& name) {
  std::string result;
  for (std::size_t i = 0; i < name.size(); ++i) {
    char32_t code = name[i];
    if (code >= 0xD800 && code < 0xDC00 && i + 1 < name.size()) {
      code = 0x10000 + ((code - 0xD800) << 10) + (name[++i] - 0xDC00u);
    }
    appendUtf8(code, result);
  }
  return result;
}

std::string checkName(RowId row) {
  return "row " + std::to_string(row.page) + "/" + std::to_string(row.slot);
}

}  // namespace jet
