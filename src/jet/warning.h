#pragma once

#include <functional>
#include <string>

namespace jet {

// Takes what is odd but harmless: stale counts and the like, one English sentence each. May be empty.
using WarningSink = std::function<void(const std::string&)>;

}  // namespace jet
