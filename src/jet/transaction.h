#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <unordered_map>
#include <vector>

#include "jet/page_file.h"

namespace jet {

// One durable change of the database: from taking the file for this program alone to `commit` or roll back.
// While it lives, the pages of its file read as changed. One at a time per file.
class Transaction {
 public:
  // Takes the file. Errors: Busy (another program has it, or the users' file says so), AccessDenied,
  // ReadOnly (Jet 3, encoded). If another program has written since this one last looked, everything that
  // was derived from earlier pages is stale: see PageFile::version.
  explicit Transaction(PageFile& file);
  // Rolls back what was not committed.
  ~Transaction();
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;

  PageFile& file() { return file_; }

  // The bytes of an existing page, to be changed; they stay at their place until the end of the transaction.
  // Earlier `PageRef`s of a page changed in this transaction show the change.
  std::span<std::uint8_t> change(std::uint32_t number, std::uint32_t from);
  // Adds a page of zeros at the end of the file. Error(Limit) beyond the format's largest file.
  std::uint32_t append();

  // Writes everything. On return it is durable; after an error the file is as it was before (or a journal
  // lies beside it that will make it so, and this PageFile fails from now on).
  // Order on the disk: journal, new pages, other pages, page 1, table definitions.
  void commit();

 private:
  friend class PageFile;
  const std::shared_ptr<Page>* find(std::uint32_t number) const;
  std::vector<std::shared_ptr<Page>> pagesInOrder() const;
  void save(const std::vector<std::shared_ptr<Page>>& pages);
  void undo(std::unique_ptr<File> journal);

  PageFile& file_;
  std::unordered_map<std::uint32_t, std::shared_ptr<Page>> changed_;
  std::uint32_t pagesBefore_ = 0;
  bool ended_ = false;
};

}  // namespace jet
