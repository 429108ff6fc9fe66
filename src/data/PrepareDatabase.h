#pragma once

#include <string>

#include "platform/Log.h"

namespace tessivo {

/// What prepareDatabase found or did.
enum class DatabaseState {
  ready,       ///< it was good; a table or a column that it lacked has been added
  created,     ///< there was none (or an empty file); now there is one, with the associations alone
  replaced,    ///< it was damaged; it has been kept aside, and there is a new one like that
  accessFile,  ///< a Microsoft Access file, left alone; of chooseDatabase: without a driver for it,
               ///< or not to be understood, so that there is a new database beside it
  accessInUse,  ///< of chooseDatabase: a Microsoft Access file, through its driver
  converted,    ///< of convertDatabase: the content of the Access file is in the own database
  accessHeld,   ///< of chooseDatabase: a Microsoft Access file that its driver cannot open now
  notWritable,  ///< what is there, if anything, can be read at most: nothing can be stored
  leftAlone,    ///< it cannot be used now: another program holds it
  failed,       ///< it cannot be made, read or completed now: the disk is full or does not answer
};

/// Sees to it that a usable database lies at `path`, once, before anything reads it. What happened
/// goes to the log; nothing throws.
///
/// A damaged file is never deleted or overwritten: it gets a free name beside it, "….damaged-1"
/// and so on. Every page is looked at, so that damage in the middle shows here and not in the
/// midst of a load. That takes about a tenth of the time of a load: 10 to 40 ms for a playlist of
/// 100 000 items.
DatabaseState prepareDatabase(const std::string& path, Log& log);

}  // namespace tessivo
