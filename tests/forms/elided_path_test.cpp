#include "forms/elided_path.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

// Ten units a character.
int width_of(const QString& words) {
    return static_cast<int>(words.size()) * 10;
}

qsizetype root(const char* a, const char* b) {
    return common_root(QString::fromUtf8(a), QString::fromUtf8(b), QLatin1Char('/'));
}

TEST(elided_path, the_root_ends_with_the_last_common_directory) {
    EXPECT_EQ(root("/home/li/a/x", "/home/li/b/x"), 9);
    EXPECT_EQ(root("/home/li/ab", "/home/li/ac"), 9) << "half a name is no directory";
    EXPECT_EQ(root("/home/li/x", "/home/li/x"), 9) << "the same path keeps its name";
    EXPECT_EQ(root("/home/li", "/home/li/x"), 6);
    EXPECT_EQ(root("/a", "/b"), 0) << "the separator alone tells nothing";
    EXPECT_EQ(root("", "/b"), 0);
    EXPECT_EQ(root("/照片/夏天/a", "/照片/冬天/a"), 4);
}

elided_path cut(const char* path, int root_length, int room) {
    return elide_path(QString::fromUtf8(path), root_length, room, width_of);
}

TEST(elided_path, what_fits_stays_whole) {
    const elided_path shown = cut("/home/li/a/x", 9, 120);
    EXPECT_EQ(shown.root, QStringLiteral("/home/li/"));
    EXPECT_EQ(shown.rest, QStringLiteral("a/x"));
}

TEST(elided_path, the_common_root_goes_first) {
    const elided_path shown = cut("/home/li/new/x.jpg", 9, 150);
    EXPECT_EQ(shown.rest, QStringLiteral("new/x.jpg"));
    EXPECT_EQ(shown.root, QStringLiteral("/hom…/"));
    EXPECT_LE(width_of(shown.root + shown.rest), 150);
}

TEST(elided_path, then_the_middle_of_what_differs) {
    const elided_path shown = cut("/home/li/pictures/summer/beach_0001.jpg", 9, 150);
    EXPECT_EQ(shown.root, QStringLiteral("…/"));
    EXPECT_TRUE(shown.rest.startsWith(QStringLiteral("pic"))) << shown.rest.toStdString();
    EXPECT_TRUE(shown.rest.endsWith(QStringLiteral(".jpg"))) << shown.rest.toStdString();
    EXPECT_LE(width_of(shown.root + shown.rest), 150);
}

TEST(elided_path, two_paths_that_differ_never_read_alike_while_a_directory_has_room) {
    const char* first = "/home/li/documents/2019/old/holiday.jpg";
    const char* second = "/home/li/documents/2021/new/holiday.jpg";
    for (int room = 240; room <= 400; room += 10) {
        const elided_path a = cut(first, 19, room), b = cut(second, 19, room);
        EXPECT_NE(a.root + a.rest, b.root + b.rest) << room;
        EXPECT_LE(width_of(a.root + a.rest), room);
    }
}

TEST(elided_path, without_a_root_the_middle_goes) {
    const elided_path shown = cut("/very/long/path/to/a/file.txt", 0, 120);
    EXPECT_TRUE(shown.root.isEmpty());
    EXPECT_TRUE(shown.rest.startsWith(QLatin1Char('/')));
    EXPECT_TRUE(shown.rest.endsWith(QStringLiteral(".txt")));
}

TEST(elided_path, no_character_is_halved) {
    // Each sign is two code units, as those outside the basic plane are.
    QString path = QStringLiteral("/");
    for (int i = 0; i < 30; ++i) path += QString::fromUtf8("😀");
    for (int room = 20; room < 600; room += 10) {
        const elided_path shown = elide_path(path, 0, room, width_of);
        for (qsizetype i = 0; i < shown.rest.size(); ++i) {
            if (shown.rest.at(i).isHighSurrogate()) {
                ASSERT_LT(i + 1, shown.rest.size());
                EXPECT_TRUE(shown.rest.at(++i).isLowSurrogate());
            } else {
                EXPECT_FALSE(shown.rest.at(i).isLowSurrogate());
            }
        }
    }
}

}  // namespace
}  // namespace corvane
