#include "prereq/frmCheckPlayers.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "fakes/FakeFileVersions.h"
#include "fakes/FakeLog.h"
#include "fakes/FakeShell.h"
#include "fakes/FakeSystem.h"
#include "fakes/VirtualTime.h"
#include "forms/FormWorld.h"
#include "panel/frmMsgBox.h"
#include "ui/Icons.h"
#include "ui/TabOrder.h"

namespace tessivo {
namespace {

constexpr ui::KeyCode kEscape = 27;
constexpr OsVersion kNt4{2, 4, 0};
constexpr OsVersion kWindows2000{2, 5, 0};
constexpr OsVersion kWindowsXp{2, 5, 1};
constexpr OsVersion kServer2003{2, 5, 2};
constexpr OsVersion kVista{2, 6, 2};
constexpr OsVersion kUnknown{2, 10, 0};

class FrmCheckPlayersTest : public testing::Test {
 protected:
  void mediaPlayer(std::uint16_t major) {
    versions.files["wmp.dll"] = versionResource(major, 0, 0, 0);
  }
  void bringInstallers() {
    for (const char* const name :
         {"wmpInstall_2000.exe", "wmpInstall_XP.exe", "wmpInstall_Vista.exe", "rpInstall_2000.exe",
          "rpInstall_XP.exe"}) {
      files.existing.insert(std::string("C:\\A B\\PlyPcks\\") + name);
    }
  }
  CheckPlayersServices services() {
    return {world->toolkit(),
            time,
            files,
            shell,
            system,
            "C:\\A B",
            [this] {
              ++rightsAsked;
              return administrator;
            },
            [this](ui::Form& owner, const std::string& title, const std::string& text) {
              warnings.push_back(title + "|" + text);
              showNotice(world->toolkit(), owner, text, title);
            }};
  }
  /// Runs the check; what the user does when the dialog is up. Whether the program goes on.
  bool check(const std::function<void(frmCheckPlayers&)>& meanwhile = [](frmCheckPlayers&) {}) {
    frmCheckPlayers dialog(services(), detection, {});
    shown = false;
    world->answerDialogs([&](ui::Form& form) {
      if (&form != &dialog) return answerNotice ? answerNotice(form) : world->close(form);
      shown = true;
      meanwhile(dialog);
      // A notice in between may have taken its turn of being closed.
      if (dialog.visible()) world->close(dialog);
    });
    const bool goesOn = dialog.checkPlayers();
    EXPECT_FALSE(dialog.timCheckPlayers.enabled());
    EXPECT_FALSE(dialog.visible());
    return goesOn;
  }
  std::string rows(const frmCheckPlayers& dialog) {
    const auto button = [this](const ui::Button& b) {
      return world->isVisible(b) ? " [" + world->text(b) + ']' : std::string();
    };
    return world->text(dialog.labMediaNotes) + button(dialog.cmdInstallMediaPlayer) + '|' +
           world->text(dialog.labRealNotes) + button(dialog.cmdInstallRealPlayer);
  }

  std::unique_ptr<ui::FormWorld> world = ui::makeFormWorld();
  VirtualTime time;
  FakeFiles files;
  FakeShell shell;
  FakeFileVersions versions;
  FakeLog log;
  OsVersion system = kVista;
  bool administrator = true;
  int rightsAsked = 0;
  std::string realFailure = "it is not installed";
  std::function<void()> whenRealIsAsked;
  int detections = 0;
  bool shown = false;
  std::vector<std::string> warnings;
  std::function<void(ui::Form&)> answerNotice;
  PlayerDetection detection{versions,
                            [this] {
                              ++detections;
                              if (whenRealIsAsked) whenRealIsAsked();
                              return realFailure;
                            },
                            {},
                            log};
};

// When all is there

TEST_F(FrmCheckPlayersTest, WithBothPlayersNothingIsShown) {
  mediaPlayer(9);
  realFailure.clear();
  EXPECT_TRUE(check());
  EXPECT_FALSE(shown);
  EXPECT_EQ(detections, 1);
  EXPECT_EQ(time.running(), 0U);
}

TEST_F(FrmCheckPlayersTest, WithOnePlayerMissingTheProgramEndsAfterTheDialog) {
  EXPECT_FALSE(check());
  EXPECT_TRUE(shown);
  mediaPlayer(12);
  EXPECT_FALSE(check());
  EXPECT_TRUE(shown);
  realFailure.clear();
  mediaPlayer(8);
  EXPECT_FALSE(check());
  EXPECT_TRUE(shown);
}

// What it says

TEST_F(FrmCheckPlayersTest, SaysWhatIsNeededAndWhatIsMissing) {
  check([this](frmCheckPlayers& dialog) {
    EXPECT_EQ(world->text(dialog), "播放器检查");
    EXPECT_EQ(
        world->text(dialog.labNotes),
        "本播放器需要 Windows Media Player 和 Real Player 播放器的支持，当前这两个播放器的配置状"
        "态为：");
    EXPECT_EQ(rows(dialog),
              "Windows Media Player 11 for Vista 尚未安装，需要安装 --> [从网上下载该播放器]|"
              "RealPlayer 11 尚未安装，需要安装 --> [从网上下载该播放器]");
    EXPECT_EQ(dialog.Picture2.icon(), icon::kError);
    EXPECT_EQ(dialog.Picture3.icon(), icon::kError);
  });
}

TEST_F(FrmCheckPlayersTest, AnInstalledPlayerHasNoButton) {
  mediaPlayer(12);
  check([this](frmCheckPlayers& dialog) {
    EXPECT_EQ(rows(dialog),
              "Windows Media Player 已经安装。|"
              "RealPlayer 11 尚未安装，需要安装 --> [从网上下载该播放器]");
    EXPECT_EQ(dialog.Picture2.icon(), icon::kInstalled);
    EXPECT_EQ(dialog.Picture3.icon(), icon::kError);
  });
  mediaPlayer(8);
  realFailure.clear();
  check([this](frmCheckPlayers& dialog) {
    EXPECT_EQ(rows(dialog),
              "Windows Media Player 11 for Vista 尚未安装，需要安装 --> [从网上下载该播放器]|"
              "Real Player 已经安装。");
  });
}

struct OnSystem {
  OsVersion system;
  const char* rows;
};
class CheckPlayersOnSystemTest : public FrmCheckPlayersTest,
                                 public testing::WithParamInterface<OnSystem> {};

TEST_P(CheckPlayersOnSystemTest, OffersTheInstallersOfTheSystem) {
  system = GetParam().system;
  bringInstallers();
  check([this](frmCheckPlayers& dialog) { EXPECT_EQ(rows(dialog), GetParam().rows); });
}
INSTANTIATE_TEST_SUITE_P(
    Systems, CheckPlayersOnSystemTest,
    testing::Values(
        OnSystem{kWindows2000,
                 "Windows Media Player 9 尚未安装，需要安装 --> [立即安装该播放器]|"
                 "RealPlayer 10 尚未安装，需要安装 --> [立即安装该播放器]"},
        OnSystem{kWindowsXp,
                 "Windows Media Player 11 尚未安装，需要安装 --> [立即安装该播放器]|"
                 "RealPlayer 11 尚未安装，需要安装 --> [立即安装该播放器]"},
        OnSystem{kServer2003,
                 "Windows Media Player 11 尚未安装，需要安装 --> [立即安装该播放器]|"
                 "RealPlayer 11 尚未安装，需要安装 --> [立即安装该播放器]"},
        OnSystem{kVista,
                 "Windows Media Player 11 for Vista 尚未安装，需要安装 --> [立即安装该播放器]|"
                 "RealPlayer 11 尚未安装，需要安装 --> [立即安装该播放器]"},
        OnSystem{kNt4,
                 " 尚未安装，需要安装 --> [从网上下载该播放器]|"
                 " 尚未安装，需要安装 --> [从网上下载该播放器]"},
        OnSystem{kUnknown,
                 " 尚未安装，需要安装 --> [从网上下载该播放器]|"
                 " 尚未安装，需要安装 --> [从网上下载该播放器]"}));

TEST_F(FrmCheckPlayersTest, EachInstallerIsLookedForByItself) {
  files.existing.insert("C:\\A B\\PlyPcks\\rpInstall_XP.exe");
  check([this](frmCheckPlayers& dialog) {
    EXPECT_EQ(world->text(dialog.cmdInstallMediaPlayer), "从网上下载该播放器");
    EXPECT_EQ(world->text(dialog.cmdInstallRealPlayer), "立即安装该播放器");
  });
}

TEST_F(FrmCheckPlayersTest, AScreenReaderTellsTheButtonsApart) {
  bringInstallers();
  check([](frmCheckPlayers& dialog) {
    EXPECT_EQ(dialog.cmdInstallMediaPlayer.accessibleName(),
              "Windows Media Player: 立即安装该播放器");
    EXPECT_EQ(dialog.cmdInstallRealPlayer.accessibleName(), "Real Player: 立即安装该播放器");
  });
}

// The buttons

TEST_F(FrmCheckPlayersTest, TheButtonsStartTheInstallers) {
  bringInstallers();
  check([this](frmCheckPlayers& dialog) {
    world->click(dialog.cmdInstallMediaPlayer);
    EXPECT_EQ(shell.lastOwner, dialog.nativeHandle());
    world->click(dialog.cmdInstallRealPlayer);
    EXPECT_TRUE(dialog.visible());
  });
  EXPECT_EQ(shell.opened, (std::vector<std::string>{"C:\\A B\\PlyPcks\\wmpInstall_Vista.exe|",
                                                    "C:\\A B\\PlyPcks\\rpInstall_XP.exe|"}));
  EXPECT_TRUE(warnings.empty());
  EXPECT_EQ(rightsAsked, 2);
}

TEST_F(FrmCheckPlayersTest, WhoIsNoAdministratorIsWarnedAndNothingStarts) {
  bringInstallers();
  administrator = false;
  std::string notice;
  answerNotice = [&](ui::Form& form) {
    auto& box = dynamic_cast<frmMsgBox&>(form);
    notice = world->text(box) + '|' + world->text(box.labNote) + '|' + world->text(box.cmdYes);
    EXPECT_FALSE(world->isVisible(box.cmdNo));
    world->click(box.cmdYes);
  };
  check([this](frmCheckPlayers& dialog) {
    world->click(dialog.cmdInstallRealPlayer);
    EXPECT_TRUE(dialog.visible());
    EXPECT_TRUE(world->isEnabled(dialog));
  });
  EXPECT_EQ(
      notice,
      "用户权限太低|您当前登录到操作系统的用户身份不属于管理员组，要进行安装操作，您必须具有"
      "管理员组身份，请重新以具有管理员组身份的用户登录到操作系统，然后再进行该安装操作。|确定");
  EXPECT_EQ(warnings.size(), 1U);
  EXPECT_TRUE(shell.opened.empty());
}

TEST_F(FrmCheckPlayersTest, WithoutInstallersTheButtonsOpenThePagesWhoeverTheUserIs) {
  administrator = false;
  const auto pagesOn = [this](OsVersion os) {
    system = os;
    shell.opened.clear();
    check([this](frmCheckPlayers& dialog) {
      world->click(dialog.cmdInstallMediaPlayer);
      world->click(dialog.cmdInstallRealPlayer);
      EXPECT_EQ(shell.lastOwner, dialog.nativeHandle());
    });
    std::string all;
    for (const std::string& page : shell.opened) all += page;
    return all;
  };
  EXPECT_EQ(pagesOn(kWindows2000), "C:\\A B\\DLUrls\\wmpW2000.htm|C:\\A B\\DLUrls\\realW2000.htm|");
  EXPECT_EQ(pagesOn(kWindowsXp), "C:\\A B\\DLUrls\\wmpXP.htm|C:\\A B\\DLUrls\\realXP.htm|");
  EXPECT_EQ(pagesOn(kVista), "C:\\A B\\DLUrls\\wmpVista.htm|C:\\A B\\DLUrls\\realXP.htm|");
  // Installers of other systems do not count.
  bringInstallers();
  EXPECT_EQ(pagesOn(kNt4), "C:\\A B\\DLUrls\\wmpW2000.htm|C:\\A B\\DLUrls\\realW2000.htm|");
  EXPECT_EQ(rightsAsked, 0);
  EXPECT_TRUE(warnings.empty());
}

// Looking again

TEST_F(FrmCheckPlayersTest, LooksAgainEveryTwoSeconds) {
  check([this](frmCheckPlayers& dialog) {
    EXPECT_EQ(detections, 1);
    time.advance(1999);
    EXPECT_EQ(detections, 1);
    time.advance(1);
    EXPECT_EQ(detections, 2);
    time.advance(4000);
    EXPECT_EQ(detections, 4);
    EXPECT_TRUE(dialog.visible());
  });
  time.advance(10000);
  EXPECT_EQ(detections, 4);
}

TEST_F(FrmCheckPlayersTest, TheTimerIsOffWhileItLooks) {
  check([this](frmCheckPlayers& dialog) {
    bool enabled = true;
    whenRealIsAsked = [&] {
      enabled = dialog.timCheckPlayers.enabled();
      time.advance(5000);  // a control that takes its time, with the messages going on
    };
    time.advance(2000);
    whenRealIsAsked = nullptr;
    EXPECT_FALSE(enabled);
    EXPECT_EQ(detections, 2);
    EXPECT_TRUE(dialog.timCheckPlayers.enabled());
  });
}

TEST_F(FrmCheckPlayersTest, AnExceptionDoesNotEndTheLooking) {
  check([this](frmCheckPlayers& dialog) {
    whenRealIsAsked = [] { throw std::runtime_error("no memory"); };
    time.advance(2000);
    EXPECT_TRUE(dialog.timCheckPlayers.enabled());
    EXPECT_TRUE(dialog.visible());
    whenRealIsAsked = nullptr;
  });
}

TEST_F(FrmCheckPlayersTest, APlayerInstalledMeanwhileIsShownSo) {
  check([this](frmCheckPlayers& dialog) {
    mediaPlayer(12);
    time.advance(2000);
    EXPECT_EQ(rows(dialog),
              "Windows Media Player 已经安装。|"
              "RealPlayer 11 尚未安装，需要安装 --> [从网上下载该播放器]");
    EXPECT_EQ(dialog.Picture2.icon(), icon::kInstalled);
    EXPECT_TRUE(dialog.timCheckPlayers.enabled());
    versions.files.clear();  // and taken away again
    time.advance(2000);
    EXPECT_TRUE(world->isVisible(dialog.cmdInstallMediaPlayer));
  });
}

TEST_F(FrmCheckPlayersTest, WithBothInstalledItGoesByItselfAndTheProgramEnds) {
  const bool goesOn = check([this](frmCheckPlayers& dialog) {
    mediaPlayer(12);
    realFailure.clear();
    time.advance(1999);
    EXPECT_TRUE(dialog.visible());
    time.advance(1);
    EXPECT_FALSE(dialog.visible());
  });
  EXPECT_FALSE(goesOn);
  EXPECT_EQ(time.running(), 0U);
}

TEST_F(FrmCheckPlayersTest, TheNoticeGoesWithIt) {
  bringInstallers();
  administrator = false;
  answerNotice = [this](ui::Form& notice) {
    mediaPlayer(12);
    realFailure.clear();
    time.advance(2000);
    EXPECT_FALSE(notice.visible());
  };
  check([this](frmCheckPlayers& dialog) {
    world->click(dialog.cmdInstallRealPlayer);
    EXPECT_FALSE(dialog.visible());
  });
}

TEST_F(FrmCheckPlayersTest, ClosedWhileItLooksItStaysClosed) {
  const bool goesOn = check([this](frmCheckPlayers& dialog) {
    whenRealIsAsked = [&] { dialog.close(); };
    time.advance(2000);
    whenRealIsAsked = nullptr;
    EXPECT_FALSE(dialog.timCheckPlayers.enabled());
  });
  EXPECT_FALSE(goesOn);
  EXPECT_EQ(time.running(), 0U);
}

// Closing it

TEST_F(FrmCheckPlayersTest, EveryWayOutEndsTheProgram) {
  EXPECT_FALSE(check([this](frmCheckPlayers& dialog) {
    world->click(dialog.cmdOk);
    EXPECT_FALSE(dialog.visible());
  }));
  EXPECT_FALSE(check([this](frmCheckPlayers& dialog) {
    world->close(dialog);
    EXPECT_FALSE(dialog.visible());
  }));
  EXPECT_FALSE(check([this](frmCheckPlayers& dialog) {
    world->key(dialog, dialog.cmdOk, kEscape);
    EXPECT_FALSE(dialog.visible());
  }));
  EXPECT_FALSE(check([](frmCheckPlayers& dialog) {
    dialog.onEndSession.raise();
    EXPECT_FALSE(dialog.visible());
  }));
}

// The keyboard and the layout

TEST_F(FrmCheckPlayersTest, TheKeyboardIsOnTheFirstThingToDo) {
  check([this](frmCheckPlayers& dialog) {
    EXPECT_TRUE(world->hasFocus(dialog.cmdInstallMediaPlayer));
    world->key(dialog, dialog.cmdInstallMediaPlayer, 13);
    EXPECT_EQ(shell.opened.size(), 1U);
  });
  mediaPlayer(12);
  check([this](frmCheckPlayers& dialog) {
    EXPECT_TRUE(world->hasFocus(dialog.cmdInstallRealPlayer));
    const ui::Control* next = nextInTabOrder(dialog, &dialog.cmdInstallRealPlayer, false);
    EXPECT_EQ(next, &dialog.cmdOk);
    next = nextInTabOrder(dialog, next, false);
    EXPECT_EQ(next, &dialog.cmdInstallRealPlayer);
  });
}

TEST_F(FrmCheckPlayersTest, TheKeyboardLeavesAButtonThatGoes) {
  check([this](frmCheckPlayers& dialog) {
    mediaPlayer(12);
    time.advance(2000);
    EXPECT_TRUE(world->hasFocus(dialog.cmdInstallRealPlayer));
    dialog.cmdOk.setFocus();
    mediaPlayer(8);
    time.advance(2000);
    EXPECT_TRUE(world->hasFocus(dialog.cmdOk));  // and stays where the user put it
  });
}

TEST_F(FrmCheckPlayersTest, AllIsInsideAndNothingOverlaps) {
  check([this](frmCheckPlayers& dialog) {
    const auto right = [](const Rect& at) { return at.left + at.width; };
    const auto bottom = [](const Rect& at) { return at.top + at.height; };
    const Rect card = world->bounds(dialog.picUpdateButtonPal);
    EXPECT_LE(right(card), dialog.scaleWidth() / 15);
    EXPECT_GE(card.top, bottom(world->bounds(dialog.labNotes)));
    EXPECT_LE(bottom(card), world->bounds(dialog.cmdOk).top);
    EXPECT_LE(bottom(world->bounds(dialog.cmdOk)), dialog.scaleHeight() / 15);
    const Rect media = world->bounds(dialog.cmdInstallMediaPlayer);
    const Rect real = world->bounds(dialog.cmdInstallRealPlayer);
    EXPECT_LE(right(world->bounds(dialog.Picture2)), world->bounds(dialog.labMediaNotes).left);
    EXPECT_LE(right(world->bounds(dialog.labMediaNotes)), media.left);
    EXPECT_LE(right(world->bounds(dialog.labRealNotes)), real.left);
    EXPECT_LE(bottom(media), real.top);
    EXPECT_LT(right(media), card.width);
    EXPECT_LT(bottom(real), card.height);
  });
}

}  // namespace
}  // namespace tessivo
