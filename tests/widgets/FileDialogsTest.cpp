#include "support/WidgetTest.h"
#include "widgets/DialogUser.h"
#include "widgets/FileDialogDriver.h"

#include <filesystem>
#include <fstream>

#include <wx/dirdlg.h>
#include <wx/filedlg.h>
#include <wx/filename.h>
#include <wx/modalhook.h>

#include <OstrelLibWx/FileDialogs.h>

namespace Ostrel {
void PrintTo(const Path& path, std::ostream* stream) {
    *stream << '"' << path.nativeStr().toUtf8() << '"';
}
} // namespace Ostrel

namespace {

using namespace Ostrel;
namespace Driver = FileDialogDriver;
using testing::ElementsAre;
using testing::IsEmpty;
using Wx::FileSelect;

const String TITLE = L"Dateien w\u00e4hlen \u2026";
constexpr const char* ALL_FILES = "All files|*";

/// What the library asks the toolkit for.
class DialogRecorder : public wxModalDialogHook {
public:
    DialogRecorder() { Register(); }
    ~DialogRecorder() override { Unregister(); }

    long style = 0;
    String title, wildcard, file;

protected:
    int Enter(wxDialog* dialog) override {
        style = dialog->GetWindowStyle();
        if (const auto* const files = dynamic_cast<wxFileDialog*>(dialog)) {
            title = files->GetMessage().ToStdWstring();
            wildcard = files->GetWildcard().ToStdWstring();
            file = files->HasFlag(wxFD_MULTIPLE) ? String() : String(files->GetFilename().ToStdWstring());
        } else if (const auto* const folders = dynamic_cast<wxDirDialog*>(dialog)) {
            title = folders->GetMessage().ToStdWstring();
        }
        return wxID_NONE; // go on
    }
};

class FileDialogs : public WidgetTest {
protected:
    void SetUp() override {
        WidgetTest::SetUp();
        namespace fs = std::filesystem;
        const std::wstring unique = wxString::Format("ostrel files %lu", wxGetProcessId()).ToStdWstring();
        // The long form of the temporary folder's name, which is what dialogs answer with.
        wxFileName temporary = wxFileName::DirName(wxFileName::GetTempDir());
        folder = Path(fs::path(temporary.GetLongPath().ToStdWstring()) / unique);
        fs::create_directories(folder.native());
        for (const wchar_t* const name : {L"a b.txt", L"c.txt", L"d.png", UNICODE_NAME}) {
            std::ofstream((folder / name).native()) << "content";
        }
        frame().Hide(); // the host has no window of the library
        pump();
        host = std::make_unique<Driver::Host>();
        ASSERT_TRUE(pumpUntil([this] { return host->isActive(); })) << "the host's window did not come up";
    }

    void TearDown() override {
        host.reset();
        WidgetTest::TearDown();
        std::filesystem::remove_all(folder.native());
    }

    using Steps = Array<DialogUser::Step>;
    using Ask = Function<Stack<Path>(const FileDialogs&)>;

    bool isShown() {
        const WindowHandle found = Driver::findDialog(TITLE);
        dialog = found ? found : dialog;
        return !found.isNull();
    }

    /// The dialog comes up; the host's window owns it and takes no input.
    DialogUser::Step shown() {
        return {"the dialog", [this] { return isShown(); },
                [this] {
                    EXPECT_EQ(Wx::getOwnerAsNativeHandle(dialog), host->handle());
                    EXPECT_FALSE(host->isEnabled());
                }};
    }
    DialogUser::Step lists(int count) {
        return {"the list", [this, count] { return Driver::countListed(dialog) == count; }, [] {}};
    }
    DialogUser::Step key(const char* awaited, Function<bool()> condition, int code) {
        return {awaited, std::move(condition), [this, code] { input().Char(code); }};
    }
    DialogUser::Step leave() {
        return {"the dialog in front", [this] { return isShown(); }, [this] { Driver::cancel(dialog, input()); }};
    }
    DialogUser::Step accept(const String& name) {
        return key(
            "the name",
            [this, name] { return isShown() && Driver::getName(dialog) == name && Driver::canAccept(dialog); },
            WXK_RETURN);
    }
    Steps cancel() { return {shown(), leave()}; }
    Steps acceptProposed(const String& name) { return {shown(), accept(name)}; }
    Steps typeName(const String& name) {
        return {
            shown(),
            {"the dialog in front", [this] { return isShown(); }, [this] { Driver::enterNameField(dialog, input()); }},
            {"the name field", [this] { return Driver::isInNameField(dialog); },
             [this, name] { input().Text(name.toUtf8().c_str()); }},
            accept(name)};
    }
    DialogUser::Step acceptMessage() {
        return key(
            "the message", [this] { return Driver::hasMessage(dialog); }, WXK_RETURN);
    }
    DialogUser::Step refuseMessage() {
        return {"the message", [this] { return Driver::hasMessage(dialog); },
                [this] { Driver::refuseMessage(input()); }};
    }

    static Steps join(Steps first, const Steps& second) {
        first.insert(first.end(), second.begin(), second.end());
        return first;
    }

    /// Lets the user answer the dialog, and checks that the host has its window back, alive and with the keyboard.
    Stack<Path> run(const Steps& steps, const Function<Stack<Path>()>& ask) {
        Stack<Path> result;
        {
            const DialogUser user(steps);
            result = ask();
        }
        EXPECT_TRUE(host->isEnabled());
        EXPECT_TRUE(pumpUntil([this] { return host->isActive(); })) << "the host's window did not become active again";
        const String before = host->getText();
        pressKey('X');
        EXPECT_TRUE(pumpUntil([&] { return host->getText() == before + "x"; })) << "the host's window heard no key";
        return result;
    }
    Path open(const Steps& steps, const Path& initial, const String& wildcard = ALL_FILES) {
        return run(steps, [&] { return Stack<Path>{Wx::filenameOpenDlg(host->handle(), TITLE, wildcard, initial)}; })
            .front();
    }
    Path save(const Steps& steps, const Path& initial, Flags<FileSelect> flags = {}) {
        return run(steps,
                   [&] { return Stack<Path>{Wx::filenameSaveDlg(host->handle(), TITLE, ALL_FILES, flags, initial)}; })
            .front();
    }
    Path selectFolder(const Steps& steps, const Path& initial) {
        return run(steps, [&] { return Stack<Path>{Wx::dirSelectDlg(host->handle(), TITLE, initial)}; }).front();
    }
    Stack<Path> openSeveral(const Steps& steps, const Path& initial, const String& wildcard = ALL_FILES) {
        return run(steps, [&] { return Wx::multiFilenameOpenDlg(host->handle(), TITLE, wildcard, initial); });
    }

    static constexpr const wchar_t* UNICODE_NAME = L"\u00fcn \u540d.txt";

    Path folder; ///< has the files "a b.txt", "c.txt", "d.png", UNICODE_NAME
    std::unique_ptr<Driver::Host> host;
    WindowHandle dialog;
};

TEST_F(FileDialogs, OpensTheFileThatIsTypedOrProposed) {
    const DialogRecorder asked;
    EXPECT_EQ(open(typeName("a b.txt"), folder / ""), folder / "a b.txt");
    EXPECT_EQ(asked.style, 17);
    EXPECT_EQ(asked.wildcard, ALL_FILES);
    EXPECT_EQ(open(acceptProposed(UNICODE_NAME), folder / UNICODE_NAME), folder / UNICODE_NAME);
}

TEST_F(FileDialogs, OpensOnlyFilesThatExist) {
    const Steps missing = join(typeName("none.txt"), {acceptMessage(), leave()});
    EXPECT_EQ(open(missing, folder / ""), Path());
}

TEST_F(FileDialogs, SavesUnderTheNameThatIsTypedOrProposed) {
    const DialogRecorder asked;
    EXPECT_EQ(save(typeName("new one"), folder / ""), folder / "new one");
    EXPECT_EQ(asked.style, 2);
    EXPECT_EQ(save(acceptProposed(L"neu \u00e9\u540d.txt"), folder / L"neu \u00e9\u540d.txt"),
              folder / L"neu \u00e9\u540d.txt");
    EXPECT_FALSE((folder / "new one").exists()) << "a dialog writes nothing";
}

TEST_F(FileDialogs, ConfirmsToOverwriteOnlyWhenAsked) {
    EXPECT_EQ(save(acceptProposed("c.txt"), folder / "c.txt"), folder / "c.txt") << "without asking";
    const DialogRecorder asked;
    const Steps confirmed = join(acceptProposed("c.txt"), {acceptMessage()});
    EXPECT_EQ(save(confirmed, folder / "c.txt", FileSelect::CONFIRM_OVERWRITE), folder / "c.txt");
    EXPECT_EQ(asked.style, 6);
    const Steps refused = join(acceptProposed("c.txt"), {refuseMessage(), leave()});
    EXPECT_EQ(save(refused, folder / "c.txt", FileSelect::CONFIRM_OVERWRITE), Path());
    EXPECT_EQ(save(typeName("new"), folder / "", FileSelect::CONFIRM_OVERWRITE), folder / "new") << "nothing to ask";
}

TEST_F(FileDialogs, OpensSeveralFilesThatTheFilterLets) {
    const DialogRecorder asked;
    const Array<String> names{"a b.txt", "c.txt", UNICODE_NAME};
    Function<bool()> picked;
    const Steps steps{shown(),
                      lists(3),
                      {"the dialog in front", [this] { return isShown(); },
                       [&] { picked = Driver::pickAll(dialog, names, input()); }},
                      key(
                          "the files", [&] { return picked() && Driver::canAccept(dialog); }, WXK_RETURN)};
    EXPECT_THAT(openSeveral(steps, folder, "Texts|*.txt|Pictures|*.png"),
                ElementsAre(folder / "a b.txt", folder / "c.txt", folder / UNICODE_NAME));
    EXPECT_EQ(asked.style, 529);
    EXPECT_EQ(asked.file, "");
    EXPECT_THAT(openSeveral(typeName("c.txt"), folder), ElementsAre(folder / "c.txt"));
}

TEST_F(FileDialogs, SelectsFolders) {
    std::filesystem::create_directory((folder / "sub folder").native());
    const DialogRecorder asked;
    EXPECT_EQ(selectFolder(typeName("sub folder"), folder), folder / "sub folder");
    EXPECT_EQ(asked.style, 0x20001840);
    EXPECT_EQ(asked.title, TITLE);
}

TEST_F(FileDialogs, OpenSomewhereWithoutAUsableStartAndGiveNothingWhenCancelled) {
    const DialogRecorder asked;
    const Path target = folder / "c.txt";
    EXPECT_EQ(open(cancel(), target), Path());
    for (const Path& initial : {Path(), folder / "gone" / ""}) {
        EXPECT_EQ(open(typeName(target.nativeStr()), initial), target);
        EXPECT_EQ(asked.file, "");
        EXPECT_EQ(save(cancel(), initial), Path());
        EXPECT_EQ(asked.file, "");
        EXPECT_THAT(openSeveral(cancel(), initial), IsEmpty());
        EXPECT_EQ(selectFolder(cancel(), initial), Path());
    }
}

} // namespace
