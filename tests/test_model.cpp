// The project model, its index arithmetic and limits, and the conversions every part relies on.
#include "model/ansi.h"
#include "model/numbers.h"
#include "model/project.h"
#include "model/prompts.h"
#include "model/runtimeerror.h"

#include <QtTest>

namespace {
template <typename F> int errorNumberOf(F&& f) {
    try {
        f();
    } catch (const RunTimeError& e) {
        return e.number();
    }
    return 0;
}
} // namespace

class TestModel : public QObject {
    Q_OBJECT
private slots:
    void paneIndexArithmetic();
    void resetPanesRestoresSentinelsOnly();
    void boundsAndOverflowAreRunTimeErrors();
    void formattingAndRounding();
    void textToNumber();
    void ansiText();
    void dialogFilters();
};

void TestModel::paneIndexArithmetic() {
    Project p;
    p.GridSide = 4;
    p.BoardCount = 62;
    QCOMPARE(PaneOfCell(p, 3, 1), qint16(33));
    QCOMPARE(PaneTotal(p), qint16(992));
    QCOMPARE(BoardOfPane(p, 33), 3);
    QCOMPARE(BoardOfPane(p, 32), 2);
    p.GridSide = 5;
    p.BoardCount = 40;
    QCOMPARE(PaneOfCell(p, 40, 25), qint16(1000));
    QCOMPARE(PaneTotal(p), qint16(1000));
    QCOMPARE(BoardOfPane(p, 1000), 40);
    p.GridSide = 3;
    p.BoardCount = 1;
    QCOMPARE(PaneOfCell(p, 2, 1), qint16(10)); // board 2 of a 3 x 3 project holds 10 to 18
    QCOMPARE(PaneOfCell(p, 2, 9), qint16(18));
}

void TestModel::resetPanesRestoresSentinelsOnly() {
    Project p;
    for (int i : {1, 500, 1000}) {
        Pane& pane = p.Panes(i);
        pane.Text = pane.Label = pane.Url = QStringLiteral("x");
        pane.ImageFile = pane.SourceFile = pane.SourceStem = QStringLiteral("/tmp/y");
        pane.FlipHorizontal = pane.FlipVertical = 1;
        pane.Position[0] = 17;
        pane.Position[1] = 34;
    }
    p.BoardTitle = p.FooterText = QStringLiteral("t");
    p.GlobalHighlightColor = 255;
    ResetPanes(p);
    for (int i : {1, 500, 1000}) {
        const Pane& pane = p.Panes(i);
        QCOMPARE(pane.Text, kToUse);
        QCOMPARE(pane.Label, kToUse);
        QCOMPARE(pane.Url, kToUse);
        QCOMPARE(pane.ImageFile, kNone);
        QCOMPARE(pane.SourceFile, kNone);
        QCOMPARE(pane.SourceStem, kNone);
        QCOMPARE(pane.FlipHorizontal, qint16(0));
        QCOMPARE(pane.FlipVertical, qint16(0));
        QCOMPARE(pane.Position[0], qint16(17)); // the cell table belongs to the stage
        QCOMPARE(pane.Position[1], qint16(34));
    }
    QCOMPARE(p.BoardTitle, kToUse);
    QCOMPARE(p.FooterText, kToUse);
    QCOMPARE(p.GlobalHighlightColor, 255);
}

void TestModel::boundsAndOverflowAreRunTimeErrors() {
    Project p;
    QCOMPARE(errorNumberOf([&] { p.Panes(1000).Text = QStringLiteral("last"); }), 0);
    QCOMPARE(errorNumberOf([&] { p.Panes(1001); }), 9);
    QCOMPARE(errorNumberOf([&] { p.Panes(-1); }), 9);
    p.DialogReply.ReDim(3);
    QCOMPARE(p.DialogReply.UBound(), 3);
    QVERIFY(p.DialogReply[3].isEmpty());
    QCOMPARE(errorNumberOf([&] { p.DialogReply[4]; }), 9);
    p.GridSide = 200;
    p.BoardCount = 200;
    QCOMPARE(errorNumberOf([&] { PaneTotal(p); }), 6); // 16-bit overflow is a fault, not a wrap
    QCOMPARE(errorNumberOf([] { Mul16(181, 181); }), 0);
    QCOMPARE(errorNumberOf([] { Mul16(182, 181); }), 6);
}

void TestModel::formattingAndRounding() {
    QCOMPARE(Format(7, "000"), QStringLiteral("007"));
    QCOMPARE(Format(1000, "000"), QStringLiteral("1000"));
    QCOMPARE(Format(1, "00"), QStringLiteral("01"));
    QCOMPARE(Format(100, "00"), QStringLiteral("100"));
    QCOMPARE(Format(12, "0000"), QStringLiteral("0012"));
    QCOMPARE(Format(-5, "000"), QStringLiteral("-005"));
    QCOMPARE(CInt(2.5), qint16(2));
    QCOMPARE(CInt(3.5), qint16(4));
    QCOMPARE(CInt(-2.5), qint16(-2));
    QCOMPARE(CInt(226.33), qint16(226));
    QCOMPARE(CInt(-32768.5), qint16(-32768));
    QCOMPARE(errorNumberOf([] { CInt(32767.5); }), 6);
    QCOMPARE(CLng(2147483647.0), qint32(2147483647));
    QCOMPARE(errorNumberOf([] { CLng(2147483648.0); }), 6);
}

void TestModel::textToNumber() {
    QCOMPARE(CInt(QStringLiteral(" 42 ")), qint16(42));
    QCOMPARE(CInt(QStringLiteral("-3")), qint16(-3));
    QCOMPARE(CInt(QStringLiteral("2.5")), qint16(2));
    QCOMPARE(CInt(QStringLiteral("1E2")), qint16(100));
    QCOMPARE(CLng(QStringLiteral("65280")), qint32(65280));
    QCOMPARE(CLng(QStringLiteral("&HFF00")), qint32(-256)); // a 16-bit hex literal is signed
    QCOMPARE(CLng(QStringLiteral("&HFF0000")), qint32(16711680));
    QCOMPARE(errorNumberOf([] { CInt(QStringLiteral("12a")); }), 13);
    QCOMPARE(errorNumberOf([] { CInt(QString()); }), 13);
    QCOMPARE(errorNumberOf([] { CInt(QStringLiteral("40000")); }), 6);
    qint16 v = 7;
    QVERIFY(!TryCInt(QStringLiteral("abc"), v));
    QVERIFY(!TryCInt(QStringLiteral("99999"), v));
    QVERIFY(!TryCInt(QStringLiteral("1e"), v));
    QCOMPARE(v, qint16(7));
    QVERIFY(TryCInt(QStringLiteral("+.5"), v));
    QCOMPARE(v, qint16(0));
}

void TestModel::ansiText() {
    const QString text = QStringLiteral("caf\u00e9 \u20ac5 \u201cquoted\u201d \u4e2d");
    const QByteArray bytes = ToAnsi(text);
    QCOMPARE(bytes, QByteArray("caf\xe9 \x80" "5 \x93quoted\x94 ?"));
    QCOMPARE(FromAnsi(bytes), QStringLiteral("caf\u00e9 \u20ac5 \u201cquoted\u201d ?"));
    QCOMPARE(ToAnsi(QStringLiteral("\U0001F600")), QByteArray("?"));
    QCOMPARE(FromAnsi(QByteArray("\x81\xff")), QStringLiteral("\u0081\u00ff"));
}

void TestModel::dialogFilters() {
    QCOMPARE(DialogFilters(QStringLiteral("KV1 (*.kv1)|*.kv1")), QStringList{QStringLiteral("KV1 (*.kv1)")});
    QCOMPARE(DialogFilters(QStringLiteral("Formats (*.Bmp *.Gif *.Jpg)|*.Bmp;*.Gif;*.Jpg")),
             QStringList{QStringLiteral("Formats (*.Bmp *.Gif *.Jpg)")});
    QCOMPARE(DialogFilters(QStringLiteral("Pictures|*.bmp;*.gif|All|*.*")),
             (QStringList{QStringLiteral("Pictures (*.bmp *.gif)"), QStringLiteral("All (*.*)")}));
}

QTEST_GUILESS_MAIN(TestModel)
#include "test_model.moc"
