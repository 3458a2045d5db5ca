#pragma once

namespace bench {

// The long form of the crash matrix: the power is lost at every operation of a run of saves for 100 persons
// and of the shorter scenarios, and every operation of the shorter ones fails. Prints what it did; false if a
// promise was broken or fewer states than asked for came about.
bool loseThePower();

}  // namespace bench
