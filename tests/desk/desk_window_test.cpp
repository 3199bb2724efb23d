// SPDX-License-Identifier: MIT
#include "desk/desk_window.h"

#include "base/file.h"
#include "desk_test.h"
#include "sample_entries.h"
#include "support/client_tree.h"

#include <filesystem>
#include <string>

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QStatusBar>

namespace onudesk::desk {

namespace {

namespace fs = std::filesystem;
using test::answerBox;
using test::answerBoxes;
using test::enter;
using test::press;
using test::withModal;

class DeskWindowTest : public testing::Test {
protected:
    test::TemporaryDirectory directory;
    fs::path folder = directory.path() / "list";
    fs::path file = folder / "inventory.json";
    DeskWindow window{{.clientDirectory = directory.path() / "client"}};

    void openSample() {
        directory.write("list/inventory.json", formatInventory(test::sampleInventory()));
        window.openInventory(file);
    }
    [[nodiscard]] Inventory saved() const { return InventoryFile(file).load().value(); }
    [[nodiscard]] std::string cell(int row, int column) const {
        return window.onuTable->item(row, column)->text().toStdString();
    }
    // The cells of a column, from the first on.
    [[nodiscard]] std::string column(int number) const {
        std::string text;
        for (int row = 0; row < window.onuTable->rowCount(); ++row) {
            text += (row == 0 ? "" : ",") + cell(row, number);
        }
        return text;
    }
    [[nodiscard]] std::string status() const {
        return window.statusBar()->currentMessage().toStdString();
    }
    // Enters an ONU and, when it is refused, looks at what is left and cancels.
    void addOnu(const char* name, const char* onu,
                const std::function<void(QWidget&)>& whenRefused = {}) {
        withModal([this] { window.addAct->trigger(); },
                  [&](QWidget& modal) {
                      enter(modal, "nameEdt", name);
                      enter(modal, "agentEdt", "10.0.0.1");
                      enter(modal, "onuEdt", onu);
                      press(modal, QDialogButtonBox::Ok);
                      if (whenRefused) {
                          whenRefused(modal);
                          press(modal, QDialogButtonBox::Cancel);
                      }
                  });
    }
    void addProfile(const char* name) {
        withModal([this] { window.profilesAct->trigger(); },
                  [&](QWidget& profiles) {
                      withModal([&] { test::control<QPushButton>(profiles, "addBtn").click(); },
                                [&](QWidget& modal) {
                                    enter(modal, "nameEdt", name);
                                    enter(modal, "readCommunityEdt", "look");
                                    press(modal, QDialogButtonBox::Ok);
                                });
                      test::control<QPushButton>(profiles, "closeBtn").click();
                  });
    }
    // Until unblock(), nothing can be written where the file is.
    void block() const {
        fs::rename(folder, folder.string() + ".away");
        directory.write("list", "in the way");
    }
    void unblock() const {
        fs::remove(folder);
        fs::rename(folder.string() + ".away", folder);
    }
};

TEST_F(DeskWindowTest, ShowsWhatTheFileHas) {
    openSample();
    EXPECT_EQ(column(0) + " " + column(1) + " " + column(2) + " " + column(3) + " " + column(4),
              "Town hall 10.0.0.1:1161 1.2.5 epononu4470_menu.xml field");
    EXPECT_TRUE(window.configureAct->isEnabled());
    EXPECT_FALSE(window.saveAct->isEnabled());
}

TEST_F(DeskWindowTest, AnEmptyListOffersOnlyAdding) {
    window.openInventory(file);
    EXPECT_TRUE(window.addAct->isEnabled());
    EXPECT_TRUE(window.profilesAct->isEnabled());
    for (const QAction* action : {window.editAct, window.removeAct, window.configureAct}) {
        EXPECT_FALSE(action->isEnabled()) << action->objectName().toStdString();
    }
}

TEST_F(DeskWindowTest, AddedEntryIsSelectedAndSavedAtOnce) {
    openSample();
    addOnu("School", "1.1.1");
    EXPECT_EQ(window.onuTable->selectedName(), "School");
    EXPECT_EQ(saved().onus().size(), 2U);
    EXPECT_EQ(saved().onus().at("School").menuFile, kGeneralMenu);
    EXPECT_FALSE(window.isWindowModified());
    EXPECT_EQ(status(), "Saved");
}

TEST_F(DeskWindowTest, RefusedEntryStaysInTheDialogAndOutOfTheFile) {
    openSample();
    addOnu("Town hall", "1.1.1", [](QWidget& modal) {
        EXPECT_TRUE(modal.isVisible());
        EXPECT_EQ(test::problemIn(modal), "There is already an ONU \"Town hall\"");
        EXPECT_EQ(test::control<QLineEdit>(modal, "onuEdt").text(), QStringLiteral("1.1.1"));
    });
    EXPECT_EQ(window.inventory(), test::sampleInventory());
    EXPECT_EQ(saved(), test::sampleInventory());
}

TEST_F(DeskWindowTest, EditedEntryTakesThePlaceOfTheOld) {
    openSample();
    withModal([this] { window.editAct->trigger(); },
              [](QWidget& modal) {
                  enter(modal, "nameEdt", "City hall");
                  enter(modal, "agentEdt", "olt-7:161");
                  press(modal, QDialogButtonBox::Ok);
              });
    EXPECT_EQ(column(0), "City hall");
    EXPECT_EQ(saved().onus().at("City hall").agent, "olt-7:161");
    EXPECT_EQ(saved().onus().size(), 1U);
}

TEST_F(DeskWindowTest, RemovesOnlyAfterYes) {
    openSample();
    const std::string question =
        answerBox([this] { window.removeAct->trigger(); }, QMessageBox::No);
    EXPECT_EQ(question, "Remove \"Town hall\" from the list?");
    EXPECT_EQ(saved().onus().size(), 1U);
    answerBox([this] { window.removeAct->trigger(); }, QMessageBox::Yes);
    EXPECT_TRUE(saved().onus().empty());
    EXPECT_EQ(window.onuTable->rowCount(), 0);
    EXPECT_FALSE(window.removeAct->isEnabled());
}

TEST_F(DeskWindowTest, ProfilesAreSavedAsTheyChange) {
    openSample();
    addProfile("lab");
    EXPECT_TRUE(saved().profiles().contains("lab"));
    EXPECT_EQ(window.onuTable->selectedName(), "Town hall");
}

TEST_F(DeskWindowTest, NumbersInTextsSortByValueAndTheSelectionStays) {
    openSample();
    addOnu("ONU 10", "1.2.10");
    addOnu("ONU 9", "1.2.9");
    window.onuTable->sortByColumn(2, Qt::AscendingOrder);
    EXPECT_EQ(column(2), "1.2.5,1.2.9,1.2.10");
    EXPECT_EQ(window.onuTable->selectedName(), "ONU 9");
    window.onuTable->sortByColumn(0, Qt::DescendingOrder);
    EXPECT_EQ(column(0), "Town hall,ONU 10,ONU 9");
    EXPECT_EQ(window.onuTable->selectedName(), "ONU 9");
    // The order outlives a change of the list, and edits go to the entry, not to the row.
    window.selectOnu("1.2.10");
    answerBox([this] { window.removeAct->trigger(); }, QMessageBox::Yes);
    EXPECT_FALSE(saved().onus().contains("ONU 10"));
    EXPECT_EQ(column(0), "Town hall,ONU 9");
}

TEST_F(DeskWindowTest, EditThatCannotBeSavedStaysAndIsSavedLater) {
    openSample();
    block();
    const std::string box = answerBox([this] { addOnu("School", "1.1.1"); });

    EXPECT_NE(box.find(folder.string()), std::string::npos) << box;
    EXPECT_EQ(status(), box);
    EXPECT_TRUE(window.inventory().onus().contains("School"));
    EXPECT_EQ(window.onuTable->rowCount(), 2);
    EXPECT_TRUE(window.isWindowModified());
    EXPECT_TRUE(window.saveAct->isEnabled());

    unblock();
    EXPECT_EQ(saved(), test::sampleInventory());
    window.saveAct->trigger();
    EXPECT_EQ(saved(), window.inventory());
    EXPECT_FALSE(window.isWindowModified());
    EXPECT_FALSE(window.saveAct->isEnabled());
}

TEST_F(DeskWindowTest, UnsavedEditsAreNotClosedAway) {
    openSample();
    window.show();
    block();
    answerBox([this] { addProfile("lab"); });
    ASSERT_TRUE(window.isWindowModified());

    answerBox([this] { window.quitAct->trigger(); }, QMessageBox::Cancel);
    EXPECT_TRUE(window.isVisible());
    // Saving fails again, so the window stays.
    answerBoxes([this] { window.quitAct->trigger(); }, {QMessageBox::Save, QMessageBox::Ok});
    EXPECT_TRUE(window.isVisible());
    unblock();
    answerBox([this] { window.quitAct->trigger(); }, QMessageBox::Save);
    EXPECT_FALSE(window.isVisible());
    EXPECT_TRUE(saved().profiles().contains("lab"));
    // Or they are given up.
    window.show();
    block();
    answerBox([this] { addProfile("other"); });
    answerBox([this] { window.quitAct->trigger(); }, QMessageBox::Discard);
    EXPECT_FALSE(window.isVisible());
    unblock();
    EXPECT_FALSE(saved().profiles().contains("other"));
}

TEST_F(DeskWindowTest, BadFileIsToldAndKept) {
    const std::string bad = "{\"format\":1,<b>";
    directory.write("list/inventory.json", bad);
    const std::string box = answerBox([this] { window.openInventory(file); });
    EXPECT_NE(box.find(file.string()), std::string::npos) << box;
    EXPECT_EQ(window.onuTable->rowCount(), 0);
    EXPECT_EQ(*readFile(file), bad);

    addProfile("lab");
    EXPECT_TRUE(saved().profiles().contains("lab"));
    EXPECT_EQ(*readFile(folder / "inventory.json.kept"), bad);
    EXPECT_NE(status().find("inventory.json.kept"), std::string::npos) << status();
}

TEST_F(DeskWindowTest, WithoutAFileNothingIsWrittenOrAsked) {
    DeskWindow demo({.clientDirectory = directory.path()}, test::sampleInventory());
    demo.show();
    answerBox([&] { demo.removeAct->trigger(); }, QMessageBox::Yes);
    EXPECT_EQ(demo.onuTable->rowCount(), 0);
    EXPECT_FALSE(demo.isWindowModified());
    demo.quitAct->trigger();
    EXPECT_FALSE(demo.isVisible());
    EXPECT_TRUE(fs::is_empty(directory.path()));
}

TEST_F(DeskWindowTest, DoubleClickConfiguresAndNamesAClientThatIsNone) {
    openSample();
    const std::string box = answerBox([this] { Q_EMIT window.onuTable->cellDoubleClicked(0, 1); });
    EXPECT_NE(box.find((directory.path() / "client").string()), std::string::npos) << box;
    EXPECT_EQ(status(), box);
    EXPECT_TRUE(window.configureAct->isEnabled());
    EXPECT_TRUE(window.onuTable->isEnabled());
}

TEST(MakeTarget, TakesEverythingFromEntryAndProfile) {
    host::OnuTarget address;
    address.agentAddress = "10.0.0.9";
    address.port = 1161;
    OnuEntry onu = test::sampleOnu();

    const host::OnuTarget plain = makeTarget(address, onu, test::communityProfile(), 2052);
    EXPECT_EQ(plain.agentAddress + ":" + std::to_string(plain.port), "10.0.0.9:1161");
    EXPECT_EQ(plain.version, host::SnmpVersion::v2c);
    EXPECT_EQ(plain.readCommunity + " " + plain.writeCommunity, "look touch");
    EXPECT_EQ((std::vector{plain.oltNumber, plain.ponNumber, plain.onuNumber, plain.subIndex}),
              (std::vector{1, 2, 5, -1}));
    EXPECT_EQ(plain.menuFileName, "epononu4470_menu.xml");
    EXPECT_EQ(plain.rootCaption, "Town hall");
    EXPECT_EQ(plain.localeId, 2052U);

    onu.localeId = 1033;
    const host::OnuTarget secure = makeTarget(address, onu, test::v3Profile(), 2052);
    EXPECT_EQ(secure.version, host::SnmpVersion::v3);
    EXPECT_EQ(secure.v3, test::v3Profile().v3);
    EXPECT_EQ(secure.localeId, 1033U);
}

} // namespace

} // namespace onudesk::desk
