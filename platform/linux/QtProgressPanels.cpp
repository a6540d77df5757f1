#include "platform/linux/QtProgressPanels.h"

#include <QCoreApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>
#include <memory>

namespace tabulon {
namespace {

constexpr int kSmallestPanelWidth = 360;
constexpr int kSteps = 1000;
constexpr qint64 kPause = 40; // milliseconds between two updates that handle events

class ProgressDialog : public QDialog {
public:
    ProgressDialog(const ProgressPanel& panel, QWidget* parent) : QDialog(parent), bar_(new QProgressBar) {
        setWindowTitle(QStringLiteral("Tabulon"));
        setWindowModality(Qt::ApplicationModal);
        setMinimumWidth(kSmallestPanelWidth);
        auto* message = new QLabel(QString::fromStdString(panel.message));
        message->setTextFormat(Qt::PlainText);
        message->setWordWrap(true);
        bar_->setRange(0, kSteps);
        bar_->setTextVisible(false);
        bar_->setAccessibleName(message->text());
        auto* buttons = new QDialogButtonBox;
        auto* cancel = buttons->addButton(QString::fromStdString(panel.cancel), QDialogButtonBox::RejectRole);
        connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
        auto* layout = new QVBoxLayout(this);
        layout->addWidget(message);
        layout->addWidget(bar_);
        layout->addWidget(buttons);
    }

    void setFraction(double fraction) {
        bar_->setValue(static_cast<int>(std::lround(std::clamp(fraction, 0.0, 1.0) * kSteps)));
    }

private:
    QProgressBar* bar_;
};

} // namespace

class QtProgressPanels::Work : public Progress {
public:
    Work(QtProgressPanels& owner, ProgressPanel panel) : owner_(owner), panel_(std::move(panel)) {
        clock_.start();
    }
    ~Work() override {
        if (dialog_)
            --owner_.showing_;
    }

    bool goOn(double fraction) override {
        const qint64 now = clock_.elapsed();
        if (cancelled_ || now < next_)
            return !cancelled_;
        if (!dialog_)
            open();
        dialog_->setFraction(fraction);
        QCoreApplication::processEvents();
        next_ = clock_.elapsed() + kPause;
        return !cancelled_;
    }

private:
    void open() {
        dialog_ = std::make_unique<ProgressDialog>(panel_, owner_.windowFor_(panel_.document));
        QObject::connect(dialog_.get(), &QDialog::rejected, [this] { cancelled_ = true; });
        ++owner_.showing_;
        dialog_->show(); // open() would leave other windows enabled
    }

    QtProgressPanels& owner_;
    const ProgressPanel panel_;
    QElapsedTimer clock_;
    qint64 next_ = std::llround(kPatience * 1000);
    bool cancelled_ = false;
    std::unique_ptr<ProgressDialog> dialog_;
};

std::unique_ptr<Progress> QtProgressPanels::begin(const ProgressPanel& panel) {
    return std::make_unique<Work>(*this, panel);
}

} // namespace tabulon
