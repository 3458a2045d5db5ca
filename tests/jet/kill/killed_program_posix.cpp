#ifndef _WIN32

#include <csignal>
#include <gtest/gtest.h>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#include "jet/kill/killed_program.h"

extern char** environ;

namespace jet::test {

std::string outputUntilKilled(const std::filesystem::path& file, std::chrono::microseconds delay) {
  int ends[2];
  if (::pipe(ends) != 0) throw std::runtime_error("no pipe");
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
  posix_spawn_file_actions_addclose(&actions, ends[0]);
  std::string program = KILL_PROGRAM, argument = file.string();
  char* arguments[] = {program.data(), argument.data(), nullptr};
  pid_t child = 0;
  const int started = ::posix_spawn(&child, program.c_str(), &actions, nullptr, arguments, environ);
  posix_spawn_file_actions_destroy(&actions);
  ::close(ends[1]);
  if (started != 0) throw std::runtime_error("the saving program does not start");
  std::this_thread::sleep_for(delay);
  ::kill(child, SIGKILL);
  int status = 0;
  ::waitpid(child, &status, 0);
  EXPECT_TRUE(WIFSIGNALED(status)) << "the saving program ended by itself";
  std::string output;
  char piece[4096];
  for (ssize_t length; (length = ::read(ends[0], piece, sizeof piece)) > 0;) {
    output.append(piece, static_cast<std::size_t>(length));
  }
  ::close(ends[0]);
  return output;
}

}  // namespace jet::test

#endif
