#include <functional>
#include <gtest/gtest.h>
#include <random>

#include "jet/error.h"
#include "jet/index_tree.h"

namespace {

using jet::ColumnType;
using jet::Text;
using jet::test::IndexKey;
using jet::test::IndexTree;
using Random = std::mt19937;

struct Shape {
  const char* name;
  int rows;
  std::size_t leastHeight;  // of the tree with all rows
  std::function<Text(Random&, int)> text;
};

void PrintTo(const Shape& shape, std::ostream* stream) { *stream << shape.name; }

Text random(Random& random, std::size_t length) {
  Text text(length, u' ');
  for (char16_t& unit : text) unit = u"abcdefghijklmnopqrstuvwxyzäöüé"[random() % 30];
  return text;
}

class IndexWriting : public ::testing::TestWithParam<Shape> {};

TEST_P(IndexWriting, LeavesARightTreeWhateverTheOrder) {
  const Shape& shape = GetParam();
  Random random(4711);
  jet::create::DatabaseBuilder builder;
  auto& table = builder.addTable({.name = u"T",
                                  .columns = {column(u"K", ColumnType::Text, 255)},
                                  .indexes = {{.name = u"I", .columns = {u"K"}}}});
  for (int i = 0; i < shape.rows; ++i) table.insert({shape.text(random, i)});
  Created created(builder);
  {
    IndexTree tree(*created.database, u"T", 0);
    const std::vector<IndexKey> ascending = tree.all();
    std::vector<IndexKey> descending = ascending, shuffled = ascending;
    std::ranges::reverse(descending);
    std::ranges::shuffle(shuffled, random);

    // Half of them away, then to and fro.
    for (std::size_t i = 0; i < shuffled.size() / 2; ++i) tree.erase(shuffled[i]);
    ASSERT_EQ(tree.faults(), "");
    // As full as it was, then with hardly an entry in a page.
    for (const std::size_t frequency : {1u, 20u}) {
      for (std::size_t i = 0; i < 4 * shuffled.size(); ++i) {
        const IndexKey& entry = shuffled[random() % shuffled.size()];
        if (tree.present().contains(entry)) {
          tree.erase(entry);
        } else if (random() % frequency == 0) {
          tree.insert(entry);
        }
        if (i % (shuffled.size() / 2) == 0) {
          ASSERT_EQ(tree.faults(), "");
        }
      }
    }
    for (const IndexKey& entry : shuffled) {
      if (!tree.present().contains(entry)) tree.insert(entry);
    }
    ASSERT_EQ(tree.faults(), "");
    EXPECT_GE(tree.height(), shape.leastHeight);

    std::size_t mostPages = tree.pages().size();
    // All gone and all back, in every order of the one and of the other.
    for (const auto& going : std::vector{ascending, descending, shuffled}) {
      for (const auto& coming : std::vector{shuffled, ascending, descending}) {
        for (const IndexKey& entry : going) {
          tree.erase(entry);
          if (tree.present().size() % (shuffled.size() / 10) == 1) {
            ASSERT_EQ(tree.faults(), "");
          }
        }
        ASSERT_EQ(tree.faults(), "");
        EXPECT_EQ(tree.pages(), std::vector{tree.definition().root});
        for (const IndexKey& entry : coming) tree.insert(entry);
        ASSERT_EQ(tree.faults(), "");
        // A tree that grows at an end has full pages.
        if (coming == shuffled) {
          mostPages = tree.pages().size();
        } else {
          EXPECT_LE(tree.pages().size(), mostPages * 9 / 10 + 1);
        }
      }
    }
    EXPECT_GE(tree.height(), shape.leastHeight);
    tree.transaction().commit();
  }
  EXPECT_EQ(created.errors(), "");
}

INSTANTIATE_TEST_SUITE_P(
    Shapes, IndexWriting,
    ::testing::Values(Shape{"LongKeys", 900, 3, [](Random& r, int) { return random(r, 255); }},
                      Shape{"KeysOfAllLengths", 1500, 2,
                            [](Random& r, int i) { return random(r, i % 4 == 0 ? 255 : r() % 20); }},
                      Shape{"LongCommonStarts", 1200, 2,
                            [](Random& r, int i) { return Text(150, u'ä') + random(r, i % 90); }},
                      Shape{"EqualKeys", 1500, 1, [](Random& r, int) { return Text(r() % 4, u'x'); }},
                      Shape{"ShortKeys", 2500, 1, [](Random& r, int) { return random(r, 6); }}),
    [](const auto& shape) { return shape.param.name; });

Created longKeys() {
  Random source(12);
  jet::create::DatabaseBuilder builder;
  auto& table = builder.addTable({.name = u"T",
                                  .columns = {column(u"K", ColumnType::Text, 255)},
                                  .indexes = {{.name = u"I", .columns = {u"K"}}}});
  for (int i = 0; i < 300; ++i) table.insert({random(source, 200)});
  return Created(builder);
}

void expectFailure(jet::ErrorKind kind, const std::function<void()>& call) {
  try {
    call();
    ADD_FAILURE() << "no failure";
  } catch (const jet::Error& error) {
    EXPECT_EQ(error.kind(), kind) << error.what();
  }
}

TEST(IndexWriter, RefusesWhatDoesNotFitTheTree) {
  Created created = longKeys();
  IndexTree tree(*created.database, u"T", 0);
  const auto [key, row] = tree.all()[150];
  expectFailure(jet::ErrorKind::Damaged, [&] { tree.writer().insert(key, row); });
  tree.erase({key, row});
  expectFailure(jet::ErrorKind::Damaged, [&] { tree.writer().erase(key, row); });
  expectFailure(jet::ErrorKind::Damaged, [&] { tree.writer().erase(key + '\1', row); });

  // Two of the longest entries share a node with room for the child's page behind each.
  const std::size_t longest = 4096 / 2 - 240 - 4 - 4;
  expectFailure(jet::ErrorKind::Limit, [&] { tree.writer().insert(std::string(longest + 1, 'x'), row); });
  for (char letter = 'a'; letter <= 'z'; ++letter) {
    EXPECT_TRUE(tree.writer().insert(std::string(longest, letter), row));
  }
  for (char letter = 'a'; letter <= 'z'; ++letter) tree.writer().erase(std::string(longest, letter), row);
  tree.insert({key, row});
  EXPECT_EQ(tree.faults(), "");
}

TEST(IndexWriter, NeitherHangsNorBreaksOnADamagedTree) {
  Created created = longKeys();
  const std::vector<std::uint8_t> sound = created.files.at("new.mdb").content;
  const std::vector<std::uint32_t> pages = IndexTree(*created.database, u"T", 0).pages();
  Random random(99);
  int failures = 0;
  for (int round = 0; round < 600; ++round) {
    std::vector<std::uint8_t> content = sound;
    for (int i = 0; i < 3; ++i) {
      // The links, the map of entries, the entries; a small number leads to another page of the file.
      const std::size_t place = std::size_t{pages[random() % pages.size()]} * 4096;
      const std::size_t offsets[] = {12 + 4 * (random() % 3), 24 + random() % 456, 480 + random() % 3616};
      content[place + offsets[random() % 3]] = static_cast<std::uint8_t>(random() % 256);
    }
    MemoryFiles files;
    files.put("new.mdb", content);
    jet::Database database(files, "new.mdb");
    IndexTree tree(database, u"T", 0);
    try {
      for (int i = 0; i < 200; ++i) {
        const IndexKey& entry = tree.all()[random() % tree.all().size()];
        if (i % 2 == 0) tree.writer().erase(entry.first, entry.second);
        tree.writer().insert(entry.first + static_cast<char>(i), entry.second);
        tree.writer().contains(entry.first);
      }
    } catch (const jet::Error& error) {
      EXPECT_EQ(error.kind(), jet::ErrorKind::Damaged) << error.what();
      ++failures;
    }
  }
  EXPECT_GT(failures, 300);
}

}  // namespace
