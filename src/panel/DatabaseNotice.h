#pragma once

#include <string>

#include "data/PrepareDatabase.h"
#include "ui/Form.h"
#include "ui/Timer.h"

namespace tessivo {

/// What the user is told at the start about the database; empty when there is nothing to tell.
std::string databaseNotice(DatabaseState state);

/// Tells it, if anything, over the owner as soon as the messages go round: the start itself waits
/// for nobody.
class DatabaseNotice {
 public:
  DatabaseNotice(ui::Toolkit& toolkit, TimerService& timers, ui::Form& owner, DatabaseState state);

 private:
  ui::Timer timer_;
};

}  // namespace tessivo
