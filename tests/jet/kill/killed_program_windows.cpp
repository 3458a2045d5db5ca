#ifdef _WIN32

#include <gtest/gtest.h>
#include <stdexcept>
#include <thread>

#include "jet/kill/killed_program.h"
#include "jet/windows_handle.h"

namespace jet::test {
namespace {

using windows::Handle;

constexpr DWORD pipeSize = 1 << 20;  // for all that is reported
constexpr UINT killed = 137;

// The writing end is all that the program inherits.
std::pair<Handle, Handle> makePipe() {
  HANDLE reading = nullptr, writing = nullptr;
  if (::CreatePipe(&reading, &writing, nullptr, pipeSize) == 0) throw std::runtime_error("no pipe");
  ::SetHandleInformation(writing, HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT);
  return {Handle(reading), Handle(writing)};
}

// It lies beside the tests.
std::filesystem::path savingProgram() {
  std::wstring self(32768, L'\0');
  self.resize(::GetModuleFileNameW(nullptr, self.data(), static_cast<DWORD>(self.size())));
  return std::filesystem::path(self).replace_filename(std::filesystem::path(KILL_PROGRAM).filename());
}

Handle start(const std::filesystem::path& program, const std::filesystem::path& argument, HANDLE output) {
  std::wstring line = L"\"" + program.native() + L"\" \"" + argument.native() + L"\"";
  STARTUPINFOW wishes{};
  wishes.cb = sizeof wishes;
  wishes.dwFlags = STARTF_USESTDHANDLES;
  wishes.hStdInput = ::GetStdHandle(STD_INPUT_HANDLE);
  wishes.hStdOutput = output;
  wishes.hStdError = ::GetStdHandle(STD_ERROR_HANDLE);
  PROCESS_INFORMATION process{};
  if (::CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &wishes,
                       &process) == 0) {
    throw std::runtime_error("the saving program does not start");
  }
  ::CloseHandle(process.hThread);
  return Handle(process.hProcess);
}

// False: nothing more will come.
bool readOn(const Handle& pipe, std::string& output) {
  char piece[4096];
  DWORD length = 0;
  if (::ReadFile(pipe.get(), piece, sizeof piece, &length, nullptr) == 0 || length == 0) return false;
  output.append(piece, length);
  return true;
}

}  // namespace

std::string outputUntilKilled(const std::filesystem::path& file, std::chrono::microseconds delay) {
  auto [reading, writing] = makePipe();
  const Handle child = start(savingProgram(), file, writing.get());
  writing.close();
  std::string output;
  readOn(reading, output);
  std::this_thread::sleep_for(delay);
  ::TerminateProcess(child.get(), killed);
  ::WaitForSingleObject(child.get(), INFINITE);
  DWORD status = 0;
  ::GetExitCodeProcess(child.get(), &status);
  EXPECT_EQ(status, killed) << "the saving program ended by itself";
  while (readOn(reading, output)) {
  }
  return output;
}

}  // namespace jet::test

#endif
