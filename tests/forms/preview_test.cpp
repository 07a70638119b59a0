// The preview below the list: shown by its key, both files of a row, pictures in step, hostile files.
#include <gtest/gtest.h>

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QImageWriter>
#include <QLabel>
#include <QTemporaryDir>
#include <QTest>
#include <QWheelEvent>

#include "browser/preview.h"
#include "forms/list_table.h"
#include "forms/main_window.h"
#include "forms/preview_page.h"
#include "forms/preview_pane.h"
#include "forms/preview_picture.h"
#include "forms/preview_side.h"
#include "tests/forms/forms_program.h"

namespace corvane {
namespace {

std::string picture_file(int width, int height, QRgb colour, const char* format = "png") {
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(colour);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return bytes.toStdString();
}

// A picture of a few bytes that says it is very large.
std::string with_stated_size(std::string png, std::uint32_t width, std::uint32_t height) {
    for (int i = 0; i < 4; ++i) {
        png[static_cast<std::size_t>(16 + i)] = static_cast<char>(width >> (24 - 8 * i));
        png[static_cast<std::size_t>(20 + i)] = static_cast<char>(height >> (24 - 8 * i));
    }
    std::uint32_t crc = 0xFFFFFFFFu;
    for (std::size_t i = 12; i < 29; ++i) {
        crc ^= static_cast<unsigned char>(png[i]);
        for (int bit = 0; bit < 8; ++bit) crc = crc >> 1 ^ (crc & 1 ? 0xEDB88320u : 0);
    }
    crc = ~crc;
    for (int i = 0; i < 4; ++i)
        png[static_cast<std::size_t>(29 + i)] = static_cast<char>(crc >> (24 - 8 * i));
    return png;
}

struct preview_window {
    preview_window() : list(shown.windows.main().list()), pane(shown.windows.main().preview()) {}

    void show(std::initializer_list<std::array<const char*, 2>> pairs) {
        shown.show_pairs(static_cast<std::int32_t>(pairs.size()));
        std::int32_t row = 0;
        for (const auto& pair : pairs) {
            shown.form.ListView1.set_number(++row, 2, 5);
            shown.form.ListView1.set_text(row, 3, pair[0]);
            shown.form.ListView1.set_text(row, 4, pair[1]);
        }
        shown.windows.sync();
    }
    void open() {
        QTest::keyClick(&shown.windows.main(), Qt::Key_F4);
        shown.settle();
    }
    void click_row(int row) {
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                          list.visualRect(list.model()->index(row, 3)).center());
    }
    // Waits for what a side comes to show; a failure after a long time only.
    bool comes(std::size_t side, const QString& words) {
        return QTest::qWaitFor(
            [&] { return pane.side(side).text().contains(words) || pane.side(side).facts().contains(words); },
            20'000);
    }
    bool picture_comes(std::size_t side) {
        return QTest::qWaitFor([&] { return !pane.side(side).picture().image().isNull(); }, 20'000);
    }

    forms_program shown;
    list_table& list;
    preview_pane& pane;
};

TEST(preview, its_key_shows_and_hides_it_and_the_entry_is_checked) {
    preview_window w;
    w.show({{"/a", "/b"}});
    EXPECT_TRUE(w.pane.isHidden());
    EXPECT_EQ(w.shown.action("preview_m")->shortcut(), QKeySequence(Qt::Key_F4));
    w.open();
    EXPECT_TRUE(w.pane.isVisible());
    EXPECT_TRUE(w.shown.action("preview_m")->isChecked());
    EXPECT_TRUE(w.list.isVisible());
    w.open();
    EXPECT_TRUE(w.pane.isHidden());
    EXPECT_FALSE(w.shown.action("preview_m")->isChecked());
}

TEST(preview, both_texts_stand_side_by_side_with_their_facts) {
    preview_window w;
    w.shown.files.add_file("/a", "first text").link_count = 2;
    w.shown.files.add_file("/b", "\xD5\xD5\xC6\xAC");
    w.show({{"/a", "/b"}, {"/a", "/elsewhere"}});
    w.open();
    w.click_row(0);
    ASSERT_TRUE(w.comes(0, QStringLiteral("first text")));
    ASSERT_TRUE(w.comes(1, QString::fromUtf8("照片")));
    EXPECT_TRUE(w.pane.side(0).facts().contains(QString::fromUtf8("长度 10 字节")));
    EXPECT_TRUE(w.pane.side(0).facts().contains(QString::fromUtf8("硬链接 2 个")));
    EXPECT_TRUE(w.pane.side(0).facts().contains(QStringLiteral("ASCII")));
    EXPECT_TRUE(w.pane.side(1).facts().contains(QStringLiteral("GB18030")));
    EXPECT_LT(w.pane.side(0).geometry().right(), w.pane.side(1).geometry().left());
    const auto* copies = static_cast<QLabel*>(w.shown.widget("preview_copies"));
    EXPECT_FALSE(copies->isHidden());
    EXPECT_EQ(copies->text(), QString::fromUtf8("别处还有 1 份: /elsewhere"));
}

TEST(preview, the_keys_of_the_list_lead_it) {
    preview_window w;
    w.shown.files.add_file("/a", "one");
    w.shown.files.add_file("/c", "three");
    w.show({{"/a", "/b"}, {"/c", "/d"}});
    w.open();
    w.click_row(0);
    ASSERT_TRUE(w.comes(0, QStringLiteral("one")));
    QTest::keyClick(&w.list, Qt::Key_Down);
    ASSERT_TRUE(w.comes(0, QStringLiteral("three")));
    EXPECT_TRUE(w.list.hasFocus());
    EXPECT_TRUE(w.comes(1, QString::fromUtf8("文件已经不在")));
}

TEST(preview, markup_in_a_file_is_text) {
    preview_window w;
    w.shown.files.add_file("/a", "<html><img src='http://example.org/x.png'><script>1</script>");
    w.show({{"/a", "/a.zip*in"}});
    w.open();
    w.click_row(0);
    EXPECT_TRUE(w.comes(0, QStringLiteral("<html><img src='http://example.org/x.png'><script>1</script>")));
    EXPECT_TRUE(w.comes(1, QString::fromUtf8("压缩包内的文件,不解开")));
    EXPECT_TRUE(w.comes(1, QString::fromUtf8("长度 5 字节")));
}

TEST(preview, pictures_show_the_same_part_at_the_same_zoom) {
    preview_window w;
    w.shown.files.add_file("/a", picture_file(400, 200, qRgb(200, 30, 30)));
    w.shown.files.add_file("/b", picture_file(300, 300, qRgb(30, 30, 200), "jpg"));
    w.show({{"/a", "/b"}});
    w.open();
    w.click_row(0);
    ASSERT_TRUE(w.picture_comes(0));
    ASSERT_TRUE(w.picture_comes(1));
    EXPECT_TRUE(w.pane.side(0).facts().contains(QString::fromUtf8("图片 400 × 200")));
    picture_view& first = w.pane.side(0).picture();
    picture_view& second = w.pane.side(1).picture();
    EXPECT_EQ(QColor(first.grab().toImage().pixel(first.width() / 2, first.height() / 2)),
              QColor(200, 30, 30));
    const QPointF middle(first.width() / 2.0, first.height() / 2.0);
    QWheelEvent turn(middle, first.mapToGlobal(middle), {}, QPoint(0, 240), Qt::NoButton, Qt::NoModifier,
                     Qt::NoScrollPhase, false);
    QApplication::sendEvent(&first, &turn);
    EXPECT_DOUBLE_EQ(first.part().zoom, 1.25 * 1.25);
    EXPECT_DOUBLE_EQ(second.part().zoom, 1.25 * 1.25);
    QTest::mousePress(&second, Qt::LeftButton, {}, QPoint(20, 20));
    QMouseEvent drag(QEvent::MouseMove, QPointF(10, 20), second.mapToGlobal(QPointF(10, 20)), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&second, &drag);
    QTest::mouseRelease(&second, Qt::LeftButton, {}, QPoint(10, 20));
    EXPECT_GT(second.part().centre.x(), 0.5);
    EXPECT_EQ(first.part().centre, second.part().centre);
    QTest::mouseDClick(&first, Qt::LeftButton);
    EXPECT_DOUBLE_EQ(second.part().zoom, 1);
    EXPECT_EQ(second.part().centre, QPointF(0.5, 0.5));
}

TEST(preview, pictures_are_turned_as_they_say) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, "jpg");
    writer.setTransformation(QImageIOHandler::TransformationRotate90);
    QImage image(60, 30, QImage::Format_RGB32);
    image.fill(Qt::red);
    ASSERT_TRUE(writer.write(image));
    const decoded_picture turned = decode_picture(bytes, "jpeg");
    EXPECT_EQ(turned.image.size(), QSize(30, 60));
    EXPECT_EQ(turned.full_size, QSize(30, 60));
}

TEST(preview, hostile_pictures_are_a_message) {
    const std::string good = picture_file(50, 40, qRgb(1, 2, 3));
    const std::pair<const char*, std::string> cases[] = {
        {"cut", good.substr(0, good.size() / 2)},
        {"huge", with_stated_size(good, 60'000, 60'000)},
        {"beyond every size", with_stated_size(good, 0x7FFFFFFF, 0x7FFFFFFF)},
        {"no size", with_stated_size(good, 0, 0)},
        {"larger than its lines", with_stated_size(good, 5'000, 5'000)},
        {"head alone", good.substr(0, 8)},
        {"jpeg of nothing", std::string("\xFF\xD8\xFF\xE0 and no more")},
        {"gif of nothing", std::string("GIF89a\xFF\xFF\xFF\xFF\0\0\0", 13)},
        {"bitmap",
         std::string("BM\x10\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\xFF\xFF\xFF\x7F\xFF\xFF\xFF\x7F\1\0\x20", 29)},
    };
    preview_window w;
    for (const auto& [name, content] : cases) {
        SCOPED_TRACE(name);
        w.shown.files.add_file("/p", content);
        w.show({{"/p", "/gone"}});
        if (w.pane.isHidden()) w.open();
        w.click_row(0);
        EXPECT_TRUE(w.comes(0, QString::fromUtf8("这个图片不能显示: 损坏、太大,或不认识")))
            << w.pane.side(0).text().toStdString();
    }
}

// A document of one red page.
std::string small_document() {
    const std::string page = "1 0 0 rg 0 0 200 100 re f";
    std::string text = "%PDF-1.4\n";
    std::vector<std::size_t> places;
    for (const std::string& object :
         {std::string("<</Type/Catalog/Pages 2 0 R>>"), std::string("<</Type/Pages/Kids[3 0 R]/Count 1>>"),
          std::string("<</Type/Page/Parent 2 0 R/MediaBox[0 0 200 100]/Contents 4 0 R/Resources<<>>>>"),
          "<</Length " + std::to_string(page.size()) + ">>stream\n" + page + "\nendstream"}) {
        places.push_back(text.size());
        text += std::to_string(places.size()) + " 0 obj" + object + "endobj\n";
    }
    const std::size_t table = text.size();
    text += "xref\n0 5\n0000000000 65535 f \n";
    for (const std::size_t place : places) {
        std::string number = std::to_string(place);
        text += std::string(10 - number.size(), '0') + number + " 00000 n \n";
    }
    return text + "trailer<</Size 5/Root 1 0 R>>\nstartxref\n" + std::to_string(table) + "\n%%EOF\n";
}

// A program that stands for the one that draws.
QString drawing_program(QTemporaryDir& folder, const char* lines) {
    const QString path = folder.filePath(QStringLiteral("draw"));
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("#!/bin/sh\n");
    file.write(lines);
    file.close();
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return path;
}

TEST(preview, a_page_is_what_the_drawing_program_makes_of_the_document) {
    QTemporaryDir folder;
    const auto never = [] { return false; };
    const QByteArray document(300'000, 'd');  // more than a pipe holds
    EXPECT_EQ(first_page(drawing_program(folder, "wc -c\n"), document, never).trimmed(), "300000");
    EXPECT_EQ(first_page(drawing_program(folder, "echo \"$@\"\n"), document, never).trimmed(),
              "-f 1 -l 1 -png -scale-to 1400 -")
        << "no path is handed over, and not all of the document has to be read";
    EXPECT_EQ(first_page(drawing_program(folder, "echo page; exit 3\n"), document, never), "");
    EXPECT_EQ(first_page(drawing_program(folder, "echo page; kill -9 $$\n"), document, never), "");
    EXPECT_EQ(first_page(folder.filePath(QStringLiteral("none")), document, never), "");
    EXPECT_EQ(first_page(drawing_program(folder, "exec sleep 1000\n"), document, never, 100), "");
    EXPECT_EQ(first_page(drawing_program(folder, "exec cat /dev/zero\n"), document, never), "") << "bounded";
    EXPECT_EQ(first_page(drawing_program(folder, "exec sleep 1000\n"), document, [] { return true; }), "");
    const QString written = folder.filePath(QStringLiteral("written"));
    const std::string writes = "echo x > '" + written.toStdString() + "'; true\n";
    first_page(drawing_program(folder, writes.c_str()), document, never);
    EXPECT_EQ(QFileInfo(written).size(), 0) << "it can write no file";
}

TEST(preview, the_first_page_of_a_document_is_a_picture_where_the_system_draws_it) {
    preview_window w;
    w.shown.files.add_file("/a.pdf", small_document());
    w.shown.files.add_file("/b.pdf", "%PDF-1.4 and nothing more");
    w.show({{"/a.pdf", "/b.pdf"}});
    w.open();
    w.click_row(0);
    const bool draws = !page_program().isEmpty();
    const char* said = draws ? "第一页不能显示" : "装上 poppler-utils 就能看第一页";
    EXPECT_TRUE(w.comes(1, QString::fromUtf8(said)));
    EXPECT_TRUE(w.pane.side(1).text().startsWith(QStringLiteral("00000000  25 50 44 46"))) << "its bytes";
    if (!draws) return;
    ASSERT_TRUE(w.picture_comes(0));
    const QImage& page = w.pane.side(0).picture().image();
    EXPECT_EQ(page.size(), QSize(1400, 700));
    EXPECT_EQ(QColor(page.pixel(700, 350)), QColor(255, 0, 0));
}

TEST(preview, a_decoder_that_takes_too_long_is_ended) {
    const QByteArray bytes = QByteArray::fromStdString(picture_file(300, 300, qRgb(9, 9, 9)));
    int asked = 0;
    // The bytes run out while the lines are decoded.
    EXPECT_TRUE(decode_picture(bytes, "png", [&] { return ++asked > 6; }).image.isNull());
    EXPECT_GT(asked, 6);
    EXPECT_TRUE(decode_picture(
                    bytes, "png", [] { return false; }, 0)
                    .image.isNull());
    EXPECT_FALSE(decode_picture(bytes, "png").image.isNull());
}

TEST(preview, a_large_picture_is_kept_small) {
    const QByteArray bytes = QByteArray::fromStdString(picture_file(3000, 2500, qRgb(9, 9, 9)));
    const decoded_picture large = decode_picture(
        bytes, "png", [] { return false; }, 600'000);
    EXPECT_EQ(large.full_size, QSize(3000, 2500));
    EXPECT_EQ(large.image.size(), QSize(2400, 2000));
}

}  // namespace
}  // namespace corvane
