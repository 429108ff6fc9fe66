#pragma once

#include <string>

namespace tessivo {

/// Whether the file is one of Microsoft Access, by its first bytes. No such file: no.
bool isAccessFile(const std::string& path);

/// Of a file that isAccessFile: whether it has the format of Access 2007 and later, which the older
/// driver cannot read.
bool isNewerAccessFile(const std::string& path);

/// Whether there is a file that may be read now and has at least one byte.
bool holdsSomething(const std::string& path);

/// Whether the file is there and may be written, and another one made beside it, as every write of
/// a database needs. The file stays as it is.
bool canBeWritten(const std::string& path);

/// `path` + `suffix` + the first number from 1 whose name no file has.
std::string freeNameBeside(const std::string& path, const std::string& suffix);

/// Gives the database at `path` a free name beside it and returns that. A journal that is still
/// there goes along: another database at `path` must not find it. Throws
/// std::filesystem::filesystem_error.
std::string keepAside(const std::string& path, const std::string& suffix);

/// Copies the database, with a journal that is there, beside itself under a free name, which it has
/// when it is whole and not before. False, and nothing is left of it, when that failed; `copy` is
/// the name in either case.
bool copyBeside(const std::string& path, const std::string& suffix, std::string& copy);

/// Renames `made` to `path`. What is at `path` is kept, see keepAside; returns its new name, ""
/// when there was nothing. When it throws (std::filesystem::filesystem_error) both are where they
/// were. Where the file system has hard links, and no journal is to go along, there is one of the
/// two at `path` at every moment.
std::string putInPlace(const std::string& made, const std::string& path, const std::string& suffix);

}  // namespace tessivo
