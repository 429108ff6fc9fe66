#pragma once

#include <string>

#include "data/MoveIn.h"
#include "ui/Form.h"
#include "ui/Timer.h"

namespace tessivo {

/// What the user is told at the start about the database; empty when there is nothing to tell.
/// `program` is the path of the database that the program looks for first.
std::string databaseNotice(const WorkingDatabase& database, const std::string& program);

/// Tells it, if anything, over the owner as soon as the messages go round: the start itself waits
/// for nobody.
class DatabaseNotice {
 public:
  DatabaseNotice(ui::Toolkit& toolkit, TimerService& timers, ui::Form& owner, std::string text);

 private:
  ui::Timer timer_;
};

}  // namespace tessivo
