#include "controls/forms/StatusPanels.h"
#include "controls/forms/WaitingLoop.h"
#include "controls/forms/icons.h"
#include "platform/errorTraps.h"
#include "uisupport/uiTest.h"

class tst_controls : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase() { showMessagesInWindows(); }

    void panelsHoldTheLatestText();
    void messageShowsTextsAsTheyAre();
    void messageAnswers();
    void fileDialogs();
    void iconsFollowThePalette();
};

void tst_controls::panelsHoldTheLatestText()
{
    StatusPanels panels(u"sbSql"_s);
    panels.resize(1000, 28);
    panels.show();
    QVERIFY(QTest::qWaitForWindowExposed(&panels));
    for (int i = 0; i <= 6; ++i) // there is none before the first and behind the fifth
        panels.setPanelText(i, u"panel %1"_s.arg(i));
    const auto label = [&](int i) { return panels.findChild<QLabel *>(u"sbSql_%1"_s.arg(i)); };
    for (int i = 1; i <= 5; ++i) {
        QCOMPARE(label(i)->text(), u"panel %1"_s.arg(i));
        QVERIFY(!label(i)->accessibleName().isEmpty());
        QCOMPARE(label(i)->accessibleDescription(), label(i)->text());
    }
    QCOMPARE(panels.childrenRect(), panels.rect());
    const int usual = panels.fontMetrics().horizontalAdvance(u"Records Retrieved: 10000000"_s);
    QVERIFY(label(4)->width() > usual && label(4)->width() < usual + 20);
    QVERIFY(label(4)->toolTip().contains(u"panel 4"_s)); // for what is cut off
}

void tst_controls::messageShowsTextsAsTheyAre()
{
    for (const QString &text : {u"ORA-00936: <b>missing</b> expression &amp; more"_s,
                                QString(3000, u'W'), u"statement failed\r\n"_s.repeated(500)}) {
        bool seen = false;
        QTimer::singleShot(50, this, [&] {
            auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            box->button(QMessageBox::Ok)->click();
            QCOMPARE(box->text(), text);
            QCOMPARE(box->textFormat(), Qt::PlainText);
            QVERIFY(box->findChild<QPlainTextEdit *>() != nullptr ||
                    box->textInteractionFlags().testFlag(Qt::TextSelectableByMouse));
            const QSize screen = QGuiApplication::primaryScreen()->availableSize();
            QCOMPARE(box->size().boundedTo(screen), box->size());
            QCOMPARE(namelessControls(*box).join(u'|'), QString());
            seen = true;
        });
        showMessage(text);
        QVERIFY(seen);
    }
}

// Asked while one waits, and just after a file dialog, when no window is the active one.
void tst_controls::messageAnswers()
{
    QMainWindow frame;
    frame.show();
    const QString question = u"Do you want to overwrite the file?"_s;
    for (const QString &answer : {u"Yes"_s, u"No"_s}) {
        const MessageAnswers user(answer);
        QCOMPARE(confirmed(question), answer == u"Yes"_s);
        QCOMPARE(user.titles, QStringList{u"Orbek SQL Editor"_s});
    }
    const auto pointer = [] { return QGuiApplication::overrideCursor()->shape(); };
    {
        const HourglassPointer outer;
        const HourglassPointer inner;
        QCOMPARE(pointer(), Qt::WaitCursor);
        QTimer::singleShot(50, this, [&] {
            QCOMPARE(pointer(), Qt::ArrowCursor);
            QCOMPARE(QApplication::activeModalWidget()->parentWidget(), &frame);
            QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape);
        });
        QApplication::setActiveWindow(nullptr);
        QVERIFY(!confirmed(question));
        QCOMPARE(pointer(), Qt::WaitCursor);
    }
    QVERIFY(!QGuiApplication::overrideCursor());
}

void tst_controls::fileDialogs()
{
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    const QTemporaryDir folder;
    const QString existing = folder.filePath(u"there.sql"_s);
    makeFile(existing, {});
    CommonDialog dialog(nullptr);
    dialog.InitDir = folder.path();
    dialog.DefaultExt = u"sql"_s;
    answerFileDialog(u"there"_s);
    dialog.ShowSave();
    QCOMPARE(dialog.FileName, QDir::toNativeSeparators(existing));

    dialog.Filter = u"All Files (*.*)|*.*|SQL File (*.sql)|*.sql;*.ddl"_s;
    dialog.Color = Qt::red;
    QStringList filters;
    const auto cancel = [&] {
        whenModal([&](QWidget *window) {
            if (const auto *files = qobject_cast<QFileDialog *>(window))
                filters = files->nameFilters();
            const QString nameless = namelessControls(*window).join(u'|');
            QTest::keyClick(window, Qt::Key_Escape);
            QCOMPARE(nameless, QString());
        });
    };
    cancel();
    dialog.ShowOpen();
    QCOMPARE(filters, QStringList({u"All Files (*.*) (*)"_s, u"SQL File (*.sql) (*.sql *.ddl)"_s}));
    QCOMPARE(dialog.FileName, QString());
    dialog.CancelError = true;
    for (void (CommonDialog::*show)() :
         {&CommonDialog::ShowSave, &CommonDialog::ShowColor, &CommonDialog::ShowFont}) {
        cancel();
        QCOMPARE(raisedError([&] { (dialog.*show)(); }), ErrorNumber::CancelWasSelected);
    }
    QCOMPARE(dialog.Color, QColor(Qt::red));
}

void tst_controls::iconsFollowThePalette()
{
    QVERIFY(themedIcon(u"no such icon"_s).isNull());
    const QIcon icon = themedIcon(u"undo"_s);
    QCOMPARE(icon.pixmap(QSize(24, 24), 2.0).size(), QSize(48, 48));

    const QPalette before = QGuiApplication::palette();
    for (const QColor &colour : {QColor(Qt::white), QColor(Qt::black)}) {
        QPalette palette;
        palette.setColor(QPalette::ButtonText, colour);
        QGuiApplication::setPalette(palette);
        const QImage image = icon.pixmap(QSize(24, 24), 1.0).toImage();
        bool drawn = false;
        for (int x = 0; x < image.width(); ++x)
            drawn = drawn || image.pixelColor(x, 9) == colour;
        QVERIFY(drawn);
    }
    QGuiApplication::setPalette(before);
}

QTEST_MAIN(tst_controls)

#include "tst_controls.moc"
