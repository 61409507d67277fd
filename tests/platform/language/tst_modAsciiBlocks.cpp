// SPDX-License-Identifier: GPL-3.0-or-later
// Finding and copying runs of ASCII with every kind of block that this machine has, at every length and position.
#include "platform/language/modAsciiBlocks.h"

#include <QTest>

#include <string>

namespace {

constexpr std::size_t longest = 140; // two rounds of four large blocks, and some bytes

// The first length, and the position in it, at which something goes wrong; empty when nothing does.
template <typename Block>
QByteArray Trouble()
{
    for (std::size_t length = 0; length <= longest; ++length) {
        for (std::size_t place = 0; place <= length; ++place) {
            for (const char byte : {'\x80', '\xFF'}) {
                std::string text(length, '\x7F');
                if (place < length)
                    text[place] = byte;
                if (place + 3 < length)
                    text[place + 3] = byte;
                std::string copy(length + 32, '.');
                const bool isFound = ob::AsciiLength<Block>(text.data(), length) == place;
                const bool isCopied = ob::CopyAscii<Block>(copy.data(), text.data(), length) == place &&
                                      copy.substr(0, place) == text.substr(0, place) &&
                                      copy.substr(length) == std::string(32, '.');
                if (!isFound || !isCopied)
                    return QByteArray::number(qulonglong{length}) + ", " + QByteArray::number(qulonglong{place});
            }
        }
    }
    return {};
}

} // namespace

class tst_modAsciiBlocks : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void wordsFindAndCopy() { QCOMPARE(Trouble<ob::WordBlock>(), QByteArray()); }
    void theMachinesBlocksFindAndCopy() { QCOMPARE(Trouble<ob::AsciiBlock>(), QByteArray()); }

    void highBytesAreCounted()
    {
        for (std::size_t length = 0; length <= 20; ++length)
            for (std::size_t high = 0; high <= length; ++high)
                QCOMPARE(ob::HighCount((std::string(length - high, '\x7F') + std::string(high, '\x80')).data(), length),
                         high);
    }
};

QTEST_GUILESS_MAIN(tst_modAsciiBlocks)
#include "tst_modAsciiBlocks.moc"
