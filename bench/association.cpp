#include "bench/association.h"

#include <algorithm>
#include <array>
#include <random>
#include <unordered_set>

namespace bench {
namespace {

constexpr std::size_t otherGroups = 60;
constexpr std::int32_t firstOtherGroup = 8;

constexpr std::array familyNames{u"Huber",   u"Gruber", u"Österreicher", u"Müller",
                                 u"Bäuerle", u"Weiß",   u"Strasser",     u"Steiner",
                                 u"Moser",   u"Mayr",   u"Leitner",      u"Schönböck"};
constexpr std::array firstNames{u"Franz", u"Maria", u"Jürgen", u"Käthe", u"Josef", u"Anna-Maria", u"Günther"};
constexpr std::array towns{u"4320 Perg", u"4644 Scharnstein", u"4100 Ottensheim", u"4203 Altenberg"};
constexpr std::array streets{u"Linzer Straße", u"Almtalweg", u"Marktplatz", u"Am Bühel"};

std::u16string digits(std::uint64_t number, std::size_t width = 0) {
  const std::string text = std::to_string(number);
  std::u16string result(width > text.size() ? width - text.size() : 0, u'0');
  return result.append(text.begin(), text.end());
}

// AT, check digits, bank code and account number.
std::u16string iban(std::uint64_t account) {
  const std::uint64_t bank = 19043;
  std::uint64_t rest = 0;
  // "AT00" behind the account: A = 10, T = 29.
  for (const char16_t digit : digits(bank, 5) + digits(account, 11) + u"102900") {
    rest = (rest * 10 + static_cast<std::uint64_t>(digit - u'0')) % 97;
  }
  return u"AT" + digits(98 - rest, 2) + digits(bank, 5) + digits(account, 11);
}

class Maker {
 public:
  Association make(std::size_t persons, std::size_t deliverers, std::size_t memberships, int year) {
    for (std::size_t i = 0; i < persons; ++i) addPerson();
    addGroups(year);
    for (std::size_t i = 0; i < deliverers; ++i) addDeliverer(result_.persons[i].id);
    while (result_.memberships.size() < memberships) {
      addMembership(result_.persons[random_() % persons].id,
                    firstOtherGroup + static_cast<std::int32_t>(random_() % otherGroups), std::nullopt);
    }
    // Not std::shuffle: its order differs from library to library.
    for (std::size_t i = result_.memberships.size(); i > 1; --i) {
      std::swap(result_.memberships[i - 1], result_.memberships[random_() % i]);
    }
    std::int32_t id = 0;
    for (Membership& membership : result_.memberships) membership.id = ++id;
    return std::move(result_);
  }

 private:
  template <typename List>
  std::u16string pick(const List& list) {
    return list[random_() % list.size()];
  }

  void addPerson() {
    const auto number = static_cast<std::int32_t>(result_.persons.size()) + 1;
    Person person;
    person.id = number;
    person.name = pick(familyNames) + u" " + pick(firstNames) + u" " + digits(random_() % 90);
    person.address = pick(towns) + u", " + pick(streets) + u" " + digits(random_() % 200 + 1);
    person.telephone = u"0664/" + digits(random_() % 10000000, 7);
    person.iban = iban(random_() % 100000000000);
    person.bic = u"BKAUATWWXXX";
    person.flatRate = random_() % 3 != 0;
    if (!person.flatRate) person.uid = u"ATU" + digits(random_() % 100000000, 8);
    result_.persons.push_back(std::move(person));
  }

  void addGroups(int year) {
    const auto yearText = [](int number) { return digits(static_cast<std::uint64_t>(number)); };
    result_.groups = {{1, u"Kunden"},
                      {2, u"Lieferanten"},
                      {groups::deliverers, deliverersName},
                      {groups::paidLastYear, u"Mitgliedsbeitrag " + yearText(year - 1)},
                      {groups::paidThisYear, u"Mitgliedsbeitrag " + yearText(year)},
                      {groups::quality, u"Qualitätsprogramm"},
                      {groups::organic, u"Bio-Betriebe"}};
    for (std::size_t i = 0; i < otherGroups; ++i) {
      result_.groups.push_back({firstOtherGroup + static_cast<std::int32_t>(i), u"Gruppe " + digits(i)});
    }
  }

  void addDeliverer(std::int32_t person) {
    addMembership(person, groups::deliverers, static_cast<std::int32_t>(10000 + random_() % 90000));
    for (const auto group : {groups::paidLastYear, groups::paidThisYear, groups::quality, groups::organic}) {
      addMembership(person, group, std::nullopt);
    }
  }

  void addMembership(std::int32_t person, std::int32_t group, std::optional<std::int32_t> number) {
    if (taken_.insert(static_cast<std::uint64_t>(person) << 32 | static_cast<std::uint32_t>(group)).second) {
      result_.memberships.push_back({0, person, group, number});
    }
  }

  std::mt19937_64 random_{20260101};  // always the same data
  std::unordered_set<std::uint64_t> taken_;
  Association result_;
};

}  // namespace

Association makeAssociation(std::size_t persons, std::size_t deliverers, std::size_t memberships, int year) {
  return Maker().make(persons, deliverers, memberships, year);
}

}  // namespace bench
