#include "crash/scenario.h"

#include <array>
#include <optional>

#include "jet/page_file.h"

namespace jet::test {
namespace {

constexpr std::int64_t startTime = 1'700'000'000'000'000'000;
constexpr std::size_t mostFaults = 20;

Disk diskWith(const Bytes& database) { return {{databaseName, {database, startTime}}}; }

// The states before, between and after the saves, and what their contents are.
class States {
 public:
  explicit States(const Scenario& scenario) : name_(scenario.name), content_(scenario.content) {
    CrashFiles files(diskWith(scenario.database));
    const Saving save = scenario.open(files);
    add(scenario.database);
    for (std::size_t i = 0; i < scenario.saves; ++i) {
      save(i);
      add(files.now().at(databaseName).content);
    }
    operations_ = files.operations();
  }
  explicit States(const FreeRun& run) : name_(run.name), content_(run.content) {
    CrashFiles files(diskWith(run.database));
    add(run.database);
    files.onOperation = [&](std::uint64_t, Operation operation, const std::filesystem::path&) {
      if (operation == Operation::Remove) add(files.now().at(databaseName).content);
    };
    run.play(files);
    operations_ = files.operations();
  }
  std::uint64_t operations() const { return operations_; }
  // What a check found in a state that no crash had to do with.
  std::vector<std::string> damages() const {
    std::vector<std::string> found;
    for (std::size_t i = 0; i < contents_.size(); ++i) {
      if (contents_[i].starts_with("damaged")) {
        found.push_back(name_ + ", state " + std::to_string(i) + ": " +
                        contents_[i].substr(0, contents_[i].find('\n')));
      }
    }
    return found;
  }

  // Which state between `first` and `last` these bytes are.
  std::optional<std::size_t> find(const Bytes& bytes, std::size_t first, std::size_t last) const {
    for (std::size_t i = first; i <= last && i < images_.size(); ++i) {
      if (images_[i] == bytes) return i;
    }
    // Not the same bytes, perhaps the same content.
    const std::string content = content_(bytes);
    for (std::size_t i = first; i <= last && i < contents_.size(); ++i) {
      if (contents_[i] == content) return i;
    }
    return {};
  }

 private:
  void add(Bytes image) {
    contents_.push_back(content_(image));
    images_.push_back(std::move(image));
  }

  std::string name_;
  std::function<std::string(const Bytes&)> content_;
  std::vector<Bytes> images_;
  std::vector<std::string> contents_;
  std::uint64_t operations_ = 0;
};

// Opens disks again and judges what is found.
class Judge {
 public:
  Judge(const States& states, CrashCounts& counts, std::uint64_t recoverySample)
      : states_(states), counts_(counts), recoverySample_(recoverySample) {}

  std::string where;  // for the faults

  // The power is lost now, with every kind of loss.
  void loseAt(const CrashFiles& files, std::size_t first, std::size_t last, std::uint64_t seeds) {
    examine(files.afterPowerLoss(Loss::Done), first, last);
    examine(files.afterPowerLoss(Loss::Lost), first, last);
    for (std::uint64_t seed = 0; seed < seeds; ++seed) {
      examine(files.afterPowerLoss(Loss::Torn, seed), first, last);
    }
  }

  // Any state from `first` to `last` is right; tells which one it was.
  std::optional<std::size_t> examine(const Disk& disk, std::size_t first, std::size_t last) {
    ++counts_.states;
    CrashFiles files(disk);
    const bool sampled = recoverySample_ != 0 && counts_.states % recoverySample_ == 0;
    if (sampled) {
      files.onOperation = [&](std::uint64_t, Operation, const std::filesystem::path&) {
        examineRecovery(files, first, last);
      };
    }
    const auto state = openAgain(files, first, last);
    // What the opening has done must be on the disk, and nothing of it may be left to do.
    if (state) {
      CrashFiles later(files.afterPowerLoss(Loss::Lost));
      openAgain(later, *state, *state);
    }
    return state;
  }

 private:
  void examineRecovery(const CrashFiles& recovering, std::size_t first, std::size_t last) {
    for (const Loss loss : {Loss::Done, Loss::Lost, Loss::Torn}) {
      ++counts_.states;
      ++counts_.recoveryStates;
      CrashFiles files(recovering.afterPowerLoss(loss, counts_.states));
      openAgain(files, first, last);
    }
  }

  std::optional<std::size_t> openAgain(CrashFiles& files, std::size_t first, std::size_t last) {
    try {
      const PageFile file(files, databaseName, 1u << 16, [&](const RecoveryResult& result) {
        if (result.what == Recovery::RolledBack) ++counts_.rolledBack;
        if (result.what == Recovery::SetAside) fault("a journal was set aside");
      });
      const auto state = states_.find(files.now().at(databaseName).content, first, last);
      if (!state) fault("neither as before nor as after the save");
      return state;
    } catch (const Error& error) {
      fault(error.what());
      return {};
    }
  }
  void fault(const std::string& what) {
    if (counts_.faults.size() < mostFaults) counts_.faults.push_back(where + ": " + what);
  }

  const States& states_;
  CrashCounts& counts_;
  std::uint64_t recoverySample_;
};

std::string placeOf(const std::string& run, std::uint64_t number, Operation operation,
                    const std::filesystem::path& path) {
  constexpr std::array names{"create", "write", "resize", "flush", "remove", "rename", "flush of the folder"};
  return run + ", operation " + std::to_string(number) + " (" + names[static_cast<std::size_t>(operation)] +
         " " + path.filename().string() + ")";
}

// One run in which an operation fails.
void failAt(const Scenario& scenario, const States& states, CrashCounts& counts, const Failure& failure) {
  Judge judge(states, counts, 0);
  judge.where = scenario.name + ", failure " + std::to_string(failure.at) +
                (failure.fromThenOn ? " and all later" : "") + (failure.shortWrite ? ", short write" : "") +
                (failure.flushForgets ? ", forgotten flush" : "");
  CrashFiles files(diskWith(scenario.database));
  Saving save = scenario.open(files);
  files.failure = failure;
  std::size_t saved = 0;
  try {
    for (; saved < scenario.saves; ++saved) save(saved);
  } catch (const Error& error) {
    if (error.kind() != failure.kind && error.kind() != ErrorKind::Interrupted) {
      counts.faults.push_back(judge.where + ": another error is told: " + error.what());
    }
  }
  // What fails once is undone at once; where everything fails the save may be in doubt.
  const std::size_t last = failure.fromThenOn && saved < scenario.saves ? saved + 1 : saved;
  if (judge.examine(files.now(), saved, last) == saved + 1) ++counts.inDoubt;
  judge.examine(files.afterPowerLoss(Loss::Lost), saved, last);
  judge.examine(files.afterPowerLoss(Loss::Torn, failure.at), saved, last);
  if (saved == scenario.saves) return;

  files.failure.reset();
  judge.where += ", tried again";
  try {
    save(saved);
    judge.examine(files.now(), saved + 1, saved + 1);
  } catch (const Error&) {  // this object has lost the file: opening it anew helps
    save = {};
    judge.examine(files.now(), saved, last);
  }
}

}  // namespace

Bytes imageAfter(const Scenario& scenario, std::size_t saves) {
  CrashFiles files(diskWith(scenario.database));
  const Saving save = scenario.open(files);
  for (std::size_t i = 0; i < saves; ++i) save(i);
  return files.now().at(databaseName).content;
}

CrashCounts loseThePower(const Scenario& scenario, const CrashPlan& plan) {
  CrashCounts counts;
  const States states(scenario);
  counts.faults = states.damages();
  Judge judge(states, counts, plan.recoverySample);
  CrashFiles files(diskWith(scenario.database));
  std::size_t saved = 0;
  std::size_t last = 1;
  const Saving save = scenario.open(files);
  files.onOperation = [&](std::uint64_t number, Operation operation, const std::filesystem::path& path) {
    judge.where = placeOf(scenario.name, number, operation, path);
    judge.loseAt(files, saved, last, plan.seeds);
  };
  while (saved < scenario.saves) {
    last = saved + 1;
    save(saved);
    ++saved;  // from now on it is there, whatever happens
    last = saved;
    judge.where = scenario.name + ", after save " + std::to_string(saved);
    judge.loseAt(files, saved, last, plan.seeds);
  }
  return counts;
}

CrashCounts loseThePower(const FreeRun& run, const CrashPlan& plan) {
  CrashCounts counts;
  const States states(run);
  counts.faults = states.damages();
  Judge judge(states, counts, plan.recoverySample);
  CrashFiles files(diskWith(run.database));
  std::size_t saved = 0;
  files.onOperation = [&](std::uint64_t number, Operation operation, const std::filesystem::path& path) {
    judge.where = placeOf(run.name, number, operation, path);
    const std::size_t last = operation == Operation::Remove ? ++saved : saved + 1;
    judge.loseAt(files, saved, last, plan.seeds);
  };
  run.play(files);
  return counts;
}

CrashCounts failEverything(const Scenario& scenario) {
  CrashCounts counts;
  const States states(scenario);
  counts.faults = states.damages();
  for (std::uint64_t at = 1; at <= states.operations(); ++at) {
    for (const bool fromThenOn : {false, true}) {
      failAt(scenario, states, counts, {at, fromThenOn, ErrorKind::DiskFull, true, false});
      failAt(scenario, states, counts, {at, fromThenOn, ErrorKind::AccessDenied, false, false});
      failAt(scenario, states, counts, {at, fromThenOn, ErrorKind::Io, false, true});
    }
  }
  return counts;
}

}  // namespace jet::test
