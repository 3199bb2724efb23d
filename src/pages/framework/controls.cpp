// SPDX-License-Identifier: MIT
#include "pages/framework/controls.h"

#include "env/language_module.h"

#include <algorithm>

#include <QAbstractButton>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QValidator>

namespace onudesk {

namespace {

constexpr int kFirstCaptionId = 500;
constexpr int kLastCaptionId = 4000;
constexpr int kFontPixels = 12;

// The bytes that the program put into a control last.
constexpr const char* kProgramText = "programText";

// What may be typed. A text set by the program is never refused: it raises the limit to its own
// length.
class TypingRule : public QValidator {
public:
    explicit TypingRule(QLineEdit& edit) : QValidator(&edit) {}

    int limit = -1; // bytes of UTF-8, -1 without limit
    bool digits = false;

    State validate(QString& text, int& /*cursor*/) const override {
        const bool wellFormed =
            !digits || std::ranges::all_of(text, [](QChar c) { return c >= u'0' && c <= u'9'; });
        const qsizetype programBytes = parent()->property(kProgramText).toByteArray().size();
        const bool fits =
            limit < 0 || text.toUtf8().size() <= std::max<qsizetype>(limit, programBytes);
        return wellFormed && fits ? Acceptable : Invalid;
    }
};

TypingRule& typingRule(QLineEdit& edit) {
    if (auto* rule = dynamic_cast<TypingRule*>(const_cast<QValidator*>(edit.validator()))) {
        return *rule;
    }
    auto* rule = new TypingRule(edit);
    edit.setValidator(rule);
    return *rule;
}

// A text the operator left alone goes back byte for byte, even where it is not valid UTF-8.
std::string editedBytes(const QWidget& control, const QString& text) {
    const std::string program = control.property(kProgramText).toByteArray().toStdString();
    return shown(program) == text ? program : bytesOf(text);
}

void select(QComboBox& combo, int row, bool keepWhenUnknown) {
    if (row >= 0 || !keepWhenUnknown) {
        const QSignalBlocker quiet(combo);
        combo.setCurrentIndex(row);
    }
}

} // namespace

QString shown(std::string_view bytes) {
    const std::string_view text = textUpToZero(bytes);
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

std::string bytesOf(const QString& text) {
    return text.toStdString();
}

void setCaption(QWidget& control, int messageId) {
    QString text = shown(messageText(messageId));
    if (auto* label = qobject_cast<QLabel*>(&control)) {
        label->setText(text);
    } else if (auto* button = qobject_cast<QAbstractButton*>(&control)) {
        button->setText(text.replace(u'&', QStringLiteral("&&")));
    } else if (auto* group = qobject_cast<QGroupBox*>(&control)) {
        group->setTitle(text.replace(u'&', QStringLiteral("&&")));
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
    control.setProperty(kProgramText, QByteArray::fromStdString(std::string(textUpToZero(text))));
    if (auto* edit = qobject_cast<QLineEdit*>(&control)) {
        edit->setText(shown(text));
        edit->setCursorPosition(0);
    } else if (auto* memo = qobject_cast<QPlainTextEdit*>(&control)) {
        memo->setPlainText(shown(text));
    }
}

void limitTyping(QLineEdit& edit, int bytes) {
    typingRule(edit).limit = bytes;
}

void digitsOnly(QLineEdit& edit) {
    typingRule(edit).digits = true;
}

std::string maskedText(const QLineEdit& edit) {
    return bytesOf(edit.displayText().replace(u'_', u' '));
}

void refuse(const CheckFailure& failure, QWidget* focus, std::uint32_t owner) {
    if (failure.textId != 0) {
        platform::prompt({.text = fillPlaces(messageText(failure.textId), failure.arguments),
                          .caption = messageText(failure.captionId),
                          .icon = failure.icon,
                          .owner = owner});
    }
    if (focus != nullptr) {
        focus->setFocus();
    }
}

bool confirmDelete(std::uint32_t owner) {
    return platform::prompt({.text = messageText(message::deleteQuestion),
                             .caption = messageText(message::deleteCaption),
                             .icon = platform::PromptIcon::warning,
                             .buttons = platform::PromptButtons::yesNo,
                             .owner = owner}) == platform::PromptAnswer::yes;
}

void tellNotANumber(std::string_view text, std::uint32_t owner) {
    refuse({message::notANumber, {std::string(text)}}, nullptr, owner);
}

QFont textFont() {
    QFont font(QStringList{QStringLiteral("微软雅黑"), QStringLiteral("WenQuanYi Micro Hei"),
                           QStringLiteral("Noto Sans CJK SC")});
    font.setPixelSize(kFontPixels);
    return font;
}

} // namespace onudesk
