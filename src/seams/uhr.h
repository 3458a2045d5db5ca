#pragma once

#include <QDateTime>

namespace pelvanto {

// The clock of the computer, and waiting.
class Uhr {
 public:
  virtual ~Uhr() = default;
  // Local time.
  virtual QDateTime jetzt() const = 0;
  // Suspends the thread.
  virtual void warten(int millisekunden) = 0;
};

}  // namespace pelvanto
