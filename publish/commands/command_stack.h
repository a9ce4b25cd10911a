#pragma once

#include <QString>
#include <QStringList>

#include <stdexcept>

namespace pondera {

/// A push beyond the highest index of a command stack.
class SubscriptOutOfRange : public std::out_of_range {
  public:
    SubscriptOutOfRange() : std::out_of_range("Subscript out of range") {}
};

/// The commands that wait for the transfer control: the one that was pushed last runs first, so a sequence is pushed in
/// the reverse of its order. Commands stand at the indices 1 to `highest_index`; index 0 is never filled.
class CommandStack {
  public:
    explicit CommandStack(int highest_index) : highest_index_(highest_index) {}

    /// Throws SubscriptOutOfRange when the highest index is filled; the stack stays as it is then.
    void push(const QString& command);

    /// Pushes a sequence so that it runs in the order given; all of it or, with the exception, nothing.
    void push_in_running_order(const QStringList& commands);

    /// Takes the command that runs next; there must be one.
    [[nodiscard]] QString take() { return commands_.takeLast(); }

    void clear() { commands_.clear(); }

    /// Commands pending.
    [[nodiscard]] int count() const { return static_cast<int>(commands_.size()); }
    [[nodiscard]] bool empty() const { return commands_.isEmpty(); }
    /// How many more can be pushed.
    [[nodiscard]] int room() const { return highest_index_ - count(); }

  private:
    int highest_index_;
    QStringList commands_;
};

}  // namespace pondera
