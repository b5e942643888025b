#include <filesystem>

#include "FileName.h"
#include "FileSystem.h"
#include "TestSupport.h"

namespace tabulorix {

TEST_CASE("Paths are cut and put together at their separators") {
    // The folder, the name in it, and the path of the score.
    const Cases cases = {{"song.tab", "+song.tab song.vif"},
                         {"/song.tab", "/+song.tab /song.vif"},
                         {"my.tabs/song", "my.tabs/+song my.tabs/song.vif"},
                         {"a/song.v2.tab", "a/+song.v2.tab a/song.v2.vif"},
                         {"a/.tab", "a/+.tab a/.tab.vif"},
                         {"song.", "+song. song.vif"},
                         {"", "+ .vif"}};
    CheckEach(cases, [](const std::string& path) {
        return Cat(GetFolderPart(path), '+', GetLastPart(path), ' ',
                   ReplaceExtension(STR(path), "vif").View());
    });
    CHECK(JoinPath("", "song.tab") == "song.tab");
    CHECK(JoinPath("a/", "song.tab") == "a/song.tab");
}

TEST_CASE("A file name is a full path") {
    const STR current = FileName(STR("x")).GetPath();
    CHECK(IsPathSeparator(current.View()[current.View().size() - 2]));
    CHECK(FileName(STR()).GetPath().IsEmpty());
    CHECK(FileName("/settings", "Options", "txt").GetPath() ==
          JoinPath("/settings", "Options.txt"));
    CHECK(FileName("/settings/", "Options", ".txt").GetPath() == "/settings/Options.txt");
}

TEST_CASE("A temporary file is empty, and a file until it is deleted") {
    const FileName file = FileName::CreateTemporary();
    CHECK(file.Exists());
    CHECK(ReadWholeFile(file.GetPath(), 0).m_Result.Succeeded());
    CHECK_FALSE(FileName(GetTemporaryFolder()).Exists());
    file.Delete();
    file.Delete();
    CHECK_FALSE(file.Exists());
}

TEST_CASE("Files are read and replaced whole, and failures tell why") {
    const STR path = FileName::CreateTemporary().GetPath();
    const std::string_view bytes("a\r\n\0\xFF", 5);
    CHECK(WriteWholeFile(path, "what was there before").Succeeded());
    CHECK(WriteWholeFile(path, bytes).Succeeded());
    CHECK(ReadWholeFile(path, 5).m_Bytes == STR(bytes));
    CHECK_FALSE(ReadWholeFile(path, 4).m_Result.Succeeded());
    CHECK_FALSE(ReadWholeFile(GetTemporaryFolder()).m_Result.Succeeded());

    CHECK(RemoveFile(path).Succeeded());
    CHECK_FALSE(RemoveFile(path).Succeeded());
}

TEST_CASE("A new file is nobody else's, and there is one only when it is complete") {
    const STR folder = FileName::CreateTemporary().GetPath();
    REQUIRE(RemoveFile(folder).Succeeded());
    REQUIRE(MakeFolder(folder).Succeeded());
    const STR path = JoinPath(folder, "score");
    CHECK(NewFile::At(path).Write("half").Succeeded());
    CHECK(GetPathKind(path) == PathKind::Nothing);
    {
        NewFile kept = NewFile::At(path);
        CHECK(kept.Write("old").Succeeded());
        CHECK(kept.Keep().Succeeded());
    }
    CHECK_FALSE(NewFile::At(path).GetCreation().Succeeded());
    CHECK(NewFile::In(folder).Write("half").Succeeded());
    CHECK(ReadWholeFile(path).m_Bytes == "old");
    {
        NewFile moved = NewFile::In(folder);
        CHECK(moved.Write("new").Succeeded());
        CHECK(moved.MoveOver(path).Succeeded());
    }
    CHECK(ReadWholeFile(path).m_Bytes == "new");
    CHECK_FALSE(NewFile::In(folder).MoveOver(folder).Succeeded());
    // Nothing else is in the folder.
    CHECK(RemoveFile(path).Succeeded());
    std::filesystem::remove(folder.GetText());
    CHECK(GetPathKind(folder) == PathKind::Nothing);
}

}  // namespace tabulorix
