#pragma once

#include <QByteArray>
#include <QString>

#include <exception>

namespace qx {

// The one error the connection components raise themselves (the others arrive through their
// Error signals).
struct NetError : std::exception {
    NetError(int number, QString source, QString description)
        : number(number), source(std::move(source)), description(std::move(description)),
          m_what(this->description.toUtf8())
    {
    }
    const char *what() const noexcept override { return m_what.constData(); }

    int number;
    QString source;
    QString description;

private:
    QByteArray m_what;
};

} // namespace qx
