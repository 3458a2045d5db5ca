#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace bench {

// An invented association, the same for every program that is measured.
struct Person {
  std::int32_t id;
  std::u16string name, address, telephone, iban, bic, uid;
  bool flatRate;
};

struct Group {
  std::int32_t id;
  std::u16string name;
};

struct Membership {
  std::int32_t id, person, group;
  std::optional<std::int32_t> number;
};

struct Association {
  std::vector<Person> persons;
  std::vector<Group> groups;
  std::vector<Membership> memberships;  // in an arbitrary order, as years of work leave them
};

namespace groups {
inline constexpr std::int32_t deliverers = 3;
inline constexpr std::int32_t paidLastYear = 4;
inline constexpr std::int32_t paidThisYear = 5;
inline constexpr std::int32_t quality = 6;
inline constexpr std::int32_t organic = 7;
}  // namespace groups

inline constexpr const char16_t* deliverersName = u"Milchlieferanten";

// The first `deliverers` persons are in the delivery group, in both year groups (`year` and the one before)
// and in both required groups; further memberships in 60 other groups up to `memberships` in all.
Association makeAssociation(std::size_t persons, std::size_t deliverers, std::size_t memberships, int year);

}  // namespace bench
