#include "data/AssociationRows.h"

#include <set>
#include <sstream>

#include "base/Text.h"
#include "panel/AddFilesDialog.h"
#include "unit/data/DataTestSupport.h"

namespace tessivo {
namespace {

/// What the dialog for adding files offers and is no type of media of its own: any program's data,
/// pictures, descriptions that only the programs they were made for can follow, shortcuts.
const std::set<std::string> kNoRows{".DAT",    ".JPG",   ".GIF", ".PNG",
                                    ".PPCAST", ".XLDAP", ".URL", ".LNK"};

std::set<std::string> offeredExtensions() {
  std::string filter = addFilesRequest(0).filter;
  for (char& c : filter) {
    if (c == '|' || c == ';' || c == '(' || c == ')') c = ' ';
  }
  std::set<std::string> all;
  std::istringstream words(filter);
  for (std::string word; words >> word;) {
    if (word.starts_with("*.") && word != "*.*") all.insert(toUpper(word.substr(1)));
  }
  return all;
}

TEST(AssociationRowsTest, EveryExtensionThatCanBeAddedIsARowOrNamedHere) {
  const TempFolder folder;
  RecordingLog log;
  const std::string path = folder.file("SysConfig");
  ASSERT_EQ(prepareDatabase(path, log), DatabaseState::created);
  std::set<std::string> rows;
  for (const auto& row : runSql(path, "select app_association from file_association")) {
    rows.insert(toUpper(row));
  }
  const auto offered = offeredExtensions();
  EXPECT_EQ(offered.size(), 58U);
  for (const std::string& extension : offered) {
    EXPECT_NE(rows.contains(extension), kNoRows.contains(extension)) << extension;
  }
  for (const std::string& extension : kNoRows) EXPECT_TRUE(offered.contains(extension));
}

}  // namespace
}  // namespace tessivo
