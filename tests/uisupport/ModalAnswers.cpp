#include "uisupport/ModalAnswers.h"

#include <QAbstractButton>
#include <QApplication>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>

#include <memory>
#include <utility>

namespace {

constexpr int pollInterval = 5;
constexpr int patience = 5000;

QString plainCaption(const QAbstractButton &button)
{
    return button.text().remove(u'&');
}

} // namespace

MessageAnswers::MessageAnswers(const QString &answer)
    : m_answer(answer)
{
    connect(&m_timer, &QTimer::timeout, this, [this] {
        if (auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget()))
            this->answer(*box);
    });
    m_timer.start(pollInterval);
}

void MessageAnswers::answer(QMessageBox &box)
{
    texts += box.text();
    titles += box.windowTitle();
    for (QAbstractButton *button : box.buttons()) {
        if (plainCaption(*button) == m_answer) {
            QTest::mouseClick(button, Qt::LeftButton);
            return;
        }
    }
    QTest::keyClick(&box, Qt::Key_Return);
}

void whenModal(std::function<void(QWidget *)> handle)
{
    auto *timer = new QTimer(qApp);
    auto waited = std::make_shared<QElapsedTimer>();
    waited->start();
    QObject::connect(timer, &QTimer::timeout, timer, [timer, waited, handle = std::move(handle)] {
        QWidget *window = QApplication::activeModalWidget();
        if (window != nullptr && qobject_cast<QMessageBox *>(window) == nullptr) {
            timer->stop();
            timer->deleteLater();
            handle(window);
        } else if (waited->hasExpired(patience)) {
            timer->stop();
            timer->deleteLater();
            QTest::qFail("No dialog has come up", __FILE__, __LINE__);
        }
    });
    timer->start(pollInterval);
}

void answerFileDialog(const QString &path)
{
    whenModal([path](QWidget *window) {
        auto *dialog = qobject_cast<QFileDialog *>(window);
        QVERIFY(dialog != nullptr);
        if (path.isEmpty())
            return dialog->reject();
        auto *name = dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
        name->setText(path);
        QTest::keyClick(name, Qt::Key_Return);
    });
}
