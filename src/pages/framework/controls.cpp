// SPDX-License-Identifier: MIT
#include "pages/framework/controls.h"

#include "env/language_module.h"

#include <algorithm>

#include <QAbstractButton>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QPointer>
#include <QTextCursor>
#include <QValidator>

namespace onudesk {

namespace {

constexpr int kFirstCaptionId = 500;
constexpr int kLastCaptionId = 4000;
constexpr int kFontPixels = 12;
constexpr int kEditMargin = 16; // beside an edit's text, both sides together

// The bytes that the program put into a control last, and what the control made of them.
constexpr const char* kProgramText = "programText";
constexpr const char* kProgramShown = "programShown";
// The text of a memo before the edit that is being judged.
constexpr const char* kAcceptedText = "acceptedText";

// Counts what is no digit.
qsizetype otherThanDigits(const QString& text) {
    return std::ranges::count_if(text, [](QChar c) { return c < u'0' || c > u'9'; });
}

// What may be typed. A text set by the program is taken as it is; from there on no edit may take
// the text further beyond the limits than it is.
class TypingRule : public QValidator {
public:
    explicit TypingRule(QLineEdit& edit) : QValidator(&edit) {}

    int bytes = -1;      // of UTF-8, -1 without limit
    int characters = -1; // likewise
    bool digits = false;

    void setProgramText(const QString& text) { accepted_ = text; }

    State validate(QString& text, int& /*cursor*/) const override {
        if (!fits(text.toUtf8().size(), accepted_.toUtf8().size(), bytes) ||
            !fits(text.size(), accepted_.size(), characters) ||
            (digits && otherThanDigits(text) > otherThanDigits(accepted_))) {
            return Invalid;
        }
        accepted_ = text;
        return Acceptable;
    }

private:
    static bool fits(qsizetype now, qsizetype before, int limit) {
        return limit < 0 || now <= limit || now <= before;
    }

    mutable QString accepted_; // the text before the edit that is being judged
};

TypingRule* findTypingRule(QLineEdit& edit) {
    return dynamic_cast<TypingRule*>(
        edit.findChild<QValidator*>(QString(), Qt::FindDirectChildrenOnly));
}

TypingRule& typingRule(QLineEdit& edit) {
    if (TypingRule* rule = findTypingRule(edit)) {
        return *rule;
    }
    auto* rule = new TypingRule(edit);
    rule->setProgramText(edit.text());
    edit.setValidator(rule);
    return *rule;
}

// A text the operator left alone goes back byte for byte, even where it is not valid UTF-8.
std::string editedBytes(const QWidget& control, const QString& text) {
    const QVariant shownText = control.property(kProgramShown);
    return shownText.isValid() && shownText.toString() == text
               ? control.property(kProgramText).toByteArray().toStdString()
               : bytesOf(text);
}

void select(QComboBox& combo, int row, bool keepWhenUnknown) {
    if (row >= 0 || !keepWhenUnknown) {
        const QSignalBlocker quiet(combo);
        combo.setCurrentIndex(row);
    }
}

// As TypingRule, but what is too much is taken away before the cursor, where it was put in.
void limitMemo(QPlainTextEdit& memo, qsizetype limit, qsizetype (*measure)(const QString& text)) {
    QObject::connect(&memo, &QPlainTextEdit::textChanged, &memo, [&memo, limit, measure] {
        const QSignalBlocker quiet(memo);
        const qsizetype most = std::max(limit, measure(memo.property(kAcceptedText).toString()));
        QTextCursor cursor = memo.textCursor();
        while (measure(memo.toPlainText()) > most && !cursor.atStart()) {
            cursor.deletePreviousChar();
        }
        memo.setProperty(kAcceptedText, memo.toPlainText());
    });
}

} // namespace

QString shown(std::string_view bytes) {
    const std::string_view text = textUpToZero(bytes);
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

std::string bytesOf(const QString& text) {
    return text.toStdString();
}

QString withoutMnemonics(QString text) {
    return text.replace(u'&', QStringLiteral("&&"));
}

void setCaption(QWidget& control, int messageId) {
    setCaption(control, shown(messageText(messageId)));
}

void setCaption(QWidget& control, const QString& text) {
    if (text.contains(u'℃')) {
        // The Chinese font of Debian has an empty picture of this sign. Only the families: all else
        // stays the window's.
        QFont font;
        font.setFamilies(QStringList{QStringLiteral("DejaVu Sans")} + textFont().families());
        control.setFont(font);
    }
    if (auto* label = qobject_cast<QLabel*>(&control)) {
        label->setText(label->buddy() == nullptr ? text : withoutMnemonics(text));
    } else if (auto* button = qobject_cast<QAbstractButton*>(&control)) {
        button->setText(withoutMnemonics(text));
    } else if (auto* group = qobject_cast<QGroupBox*>(&control)) {
        group->setTitle(withoutMnemonics(text));
    } else {
        control.setWindowTitle(text);
    }
}

void loadCaption(QWidget& control, int messageId) {
    if (kFirstCaptionId <= messageId && messageId <= kLastCaptionId) {
        setCaption(control, messageId);
    }
}

void fillCombo(QComboBox& combo, const ValueMap& map) {
    const QSignalBlocker quiet(combo);
    combo.clear();
    for (const ValuePair& pair : map.pairs()) {
        combo.addItem(shown(pair.text), QByteArray::fromStdString(pair.value));
    }
    combo.setCurrentIndex(-1);
}

void selectByText(QComboBox& combo, std::string_view text) {
    select(combo, text.empty() ? -1 : combo.findText(shown(text), Qt::MatchExactly), false);
}

void selectOrClear(QComboBox& combo, std::string_view code) {
    select(combo, combo.findData(QByteArray::fromStdString(std::string(code))), false);
}

void selectIfKnown(QComboBox& combo, std::string_view code) {
    select(combo, combo.findData(QByteArray::fromStdString(std::string(code))), true);
}

std::optional<std::string> selectedCode(const QComboBox& combo) {
    if (combo.currentIndex() < 0) {
        return std::nullopt;
    }
    return combo.currentData().toByteArray().toStdString();
}

void showValue(QWidget& control, const ValueMap& map, std::string_view value) {
    if (auto* combo = qobject_cast<QComboBox*>(&control)) {
        selectOrClear(*combo, value);
    } else {
        setControlText(control, map.textOf(std::string(value)));
    }
}

FieldState stateOf(const QWidget& control) {
    FieldState state{.text = {}, .code = std::nullopt, .enabled = control.isEnabled()};
    if (const auto* edit = qobject_cast<const QLineEdit*>(&control)) {
        state.text =
            edit->inputMask().isEmpty() ? editedBytes(*edit, edit->text()) : maskedText(*edit);
    } else if (const auto* memo = qobject_cast<const QPlainTextEdit*>(&control)) {
        state.text = editedBytes(*memo, memo->toPlainText());
    } else if (const auto* combo = qobject_cast<const QComboBox*>(&control)) {
        state.text = bytesOf(combo->currentText());
        state.code = selectedCode(*combo);
    } else if (const auto* box = qobject_cast<const QCheckBox*>(&control)) {
        state.ticked = box->isChecked();
    }
    return state;
}

void setControlText(QWidget& control, std::string_view text) {
    const QSignalBlocker quiet(control);
    const QString wanted = shown(text);
    QString made;
    if (auto* edit = qobject_cast<QLineEdit*>(&control)) {
        if (TypingRule* rule = findTypingRule(*edit)) {
            rule->setProgramText(wanted);
        }
        edit->setText(wanted);
        edit->setCursorPosition(0);
        made = edit->text();
    } else if (auto* memo = qobject_cast<QPlainTextEdit*>(&control)) {
        memo->setPlainText(wanted);
        made = memo->toPlainText();
        memo->setProperty(kAcceptedText, made);
    }
    control.setProperty(kProgramShown, made);
    control.setProperty(kProgramText, QByteArray::fromStdString(std::string(textUpToZero(text))));
}

void limitTyping(QLineEdit& edit, int bytes) {
    typingRule(edit).bytes = bytes;
}

void limitTyping(QPlainTextEdit& memo, int bytes) {
    limitMemo(memo, bytes, [](const QString& text) { return text.toUtf8().size(); });
}

void limitCharacters(QLineEdit& edit, int characters) {
    typingRule(edit).characters = characters;
}

void limitCharacters(QPlainTextEdit& memo, int characters) {
    limitMemo(memo, characters, [](const QString& text) { return text.size(); });
}

void digitsOnly(QLineEdit& edit) {
    typingRule(edit).digits = true;
}

void maskMac(QLineEdit& edit) {
    edit.setInputMask(QStringLiteral("nn:nn:nn:nn:nn:nn;_"));
    edit.setMinimumWidth(edit.fontMetrics().horizontalAdvance(QStringLiteral("DD:DD:DD:DD:DD:DD")) +
                         kEditMargin);
}

std::string maskedText(const QLineEdit& edit) {
    return bytesOf(edit.displayText().replace(u'_', u' '));
}

void tabThrough(const QWidget& panel, const QLayout& buttons) {
    QWidget* before = nullptr;
    const auto append = [&before](QWidget* control) {
        if (before != nullptr) {
            QWidget::setTabOrder(before, control);
        }
        before = control;
    };
    for (QWidget* control : panel.findChildren<QWidget*>()) {
        if ((control->focusPolicy() & Qt::TabFocus) != 0) {
            append(control);
        }
    }
    for (int at = 0; at < buttons.count(); ++at) {
        if (QWidget* button = buttons.itemAt(at)->widget()) {
            append(button);
        }
    }
}

void refuse(const CheckFailure& failure, QWidget* focus, std::uint32_t owner) {
    const QPointer<QWidget> target(focus); // the box may outlive it
    if (failure.textId != 0) {
        platform::prompt(
            {.text = fillPlaces(messageText(failure.textId), failure.arguments) + failure.after,
             .caption = messageText(failure.captionId),
             .icon = failure.icon,
             .owner = owner});
    }
    if (target) {
        target->setFocus();
    }
}

bool confirm(const std::string& text, const std::string& caption, std::uint32_t owner) {
    return platform::prompt({.text = text,
                             .caption = caption,
                             .icon = platform::PromptIcon::warning,
                             .buttons = platform::PromptButtons::yesNo,
                             .owner = owner}) == platform::PromptAnswer::yes;
}

bool confirmDelete(std::uint32_t owner, const std::string& what) {
    return confirm(messageText(message::deleteQuestion), messageText(message::deleteCaption) + what,
                   owner);
}

void refuseNotANumber(std::string_view text, std::uint32_t owner) {
    refuse({message::notANumber, {std::string(text)}}, nullptr, owner);
}

QFont textFont() {
    QFont font(QStringList{QStringLiteral("微软雅黑"), QStringLiteral("WenQuanYi Micro Hei"),
                           QStringLiteral("Noto Sans CJK SC")});
    font.setPixelSize(kFontPixels);
    return font;
}

} // namespace onudesk
