// Only one copy of the program runs for a user.
#pragma once

#include <QLockFile>
#include <QString>

namespace tallmar {

// Holds the place of the one copy during its life.
class OneCopy {
  public:
    // Takes the place in `folder`, the user's data folder, which is made where it is missing. What a copy left behind
    // that crashed is cleared away.
    explicit OneCopy(const QString& folder);
    // False where another copy runs. Where the folder cannot be written nothing is known, and the program runs.
    bool Is_First() const { return first_; }

  private:
    bool Take();

    QLockFile lock_;
    bool first_;
};

// The box of a second copy, before it shuts down.
void Tell_Second_Copy();

}  // namespace tallmar
