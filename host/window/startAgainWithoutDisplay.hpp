#pragma once

namespace zorvantine {

// Starts this program anew with the same command line, on a desktop that has no display as far as
// it can see. For a display that turns out to be out of reach when Qt, which then stops the
// process, is already under way. Returns only when the system refuses.
void startAgainWithoutDisplay();

}  // namespace zorvantine
