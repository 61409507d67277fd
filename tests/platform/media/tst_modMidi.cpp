// SPDX-License-Identifier: GPL-3.0-or-later
// MIDI files and the times of their events; damaged files are read as far as they make sense.
#include "platform/media/modMidi.h"

#include "platform/media/MidiBytes.h"

#include <QRandomGenerator>
#include <QTest>

using namespace ob;

class tst_modMidi : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void notesHaveTheTimesOfTheUsualTempo()
    {
        const auto song = ReadMidi(MidiSongFile(4));
        QVERIFY(song.has_value());
        QCOMPARE(song->events.size(), std::size_t{8});
        QCOMPARE(song->length, std::int64_t{2'000'000});
        QCOMPARE(song->events[2].time, std::int64_t{500'000});
        QCOMPARE(int(song->events[2].status), 0x90);
        QCOMPARE(int(song->events[2].first), 60);
        QCOMPARE(int(song->events[2].second), 100);
    }

    void aTempoAppliesToAllTracksFromItsTickOn()
    {
        const QByteArray first = MidiDelta(96) + MidiTempo(1'000'000) + MidiDelta(0) + MidiEnd;
        const QByteArray second =
            MidiDelta(96) + "\x91\x40\x40" + MidiDelta(96) + "\x91\x41\x40" + MidiDelta(0) + MidiEnd;
        const auto song = ReadMidi(MidiHead(1, 2, 96) + MidiTrack(first) + MidiTrack(second));
        QVERIFY(song.has_value());
        QCOMPARE(song->events.size(), std::size_t{2});
        QCOMPARE(song->events[0].time, std::int64_t{500'000});
        QCOMPARE(song->events[1].time, std::int64_t{1'500'000});
        QCOMPARE(song->length, std::int64_t{1'500'000});
    }

    void tracksOfFormatTwoFollowEachOther()
    {
        const QByteArray track = MidiDelta(96) + "\x90\x40\x40" + MidiDelta(96) + MidiEnd;
        const auto song = ReadMidi(MidiHead(2, 2, 96) + MidiTrack(track) + MidiTrack(track));
        QVERIFY(song.has_value());
        QCOMPARE(song->events[1].time, std::int64_t{1'500'000});
        QCOMPARE(song->length, std::int64_t{2'000'000});
    }

    void ticksCanBePartsOfASecond()
    {
        // 25 frames a second of 40 ticks: a thousand ticks a second, whatever the tempo.
        const QByteArray track = MidiTempo(1).prepend('\0') + MidiDelta(1'500) + MidiEnd;
        const auto song = ReadMidi(MidiHead(0, 1, 0xE728) + MidiTrack(track));
        QVERIFY(song.has_value());
        QCOMPARE(song->length, std::int64_t{1'500'000});
    }

    void runningStatusShortAndSystemMessagesAreRead()
    {
        const QByteArray system = QByteArray("\xF0\x05\x7E\x7F\x09\x01\xF7", 7);
        const QByteArray track = MidiDelta(0) + "\xC3\x05" + MidiDelta(0) + "\x07" + MidiDelta(0) + system +
                                 MidiDelta(0) + "\xE3\x01\x40" + MidiDelta(0) + MidiEnd;
        const QByteArray file = MidiHead(0, 1, 96) + MidiTrack(track);
        const auto song = ReadMidi(file);
        QVERIFY(song.has_value());
        QCOMPARE(song->events.size(), std::size_t{4});
        QCOMPARE(int(song->events[1].status), 0xC3);
        QCOMPARE(int(song->events[1].first), 7);
        QCOMPARE(int(song->events[1].second), 0);
        QCOMPARE(file.sliced(song->events[2].offset, song->events[2].length), QByteArray("\x7E\x7F\x09\x01"));
        QCOMPARE(int(song->events[3].second), 0x40);
    }

    void otherChunksAreSkippedAndARiffContainerIsOpened()
    {
        const QByteArray odd = "XFIH" + BigEndian(3, 4) + "abc";
        const QByteArray song = MidiSongFile(2);
        QCOMPARE(ReadMidi(song.first(14) + odd + song.sliced(14))->length, std::int64_t{1'000'000});
        const QByteArray riff = QByteArray("RIFF\x00\x00\x00\x00RMIDdata\x00\x00\x00\x00", 20);
        QCOMPARE(ReadMidi(riff + song)->length, std::int64_t{1'000'000});
        const QByteArray listed = QByteArray("RIFF\x00\x00\x00\x00RMIDLIST\x03\x00\x00\x00"
                                             "abc\x00"
                                             "data\x00\x00\x00\x00",
                                             32);
        QCOMPARE(ReadMidi(listed + song)->length, std::int64_t{1'000'000});
    }

    void bytesThatAreNotASongAreRejected_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("text") << QByteArray("print \"MThd\"\r\n");
        QTest::newRow("head alone") << MidiHead(0, 1, 96);
        QTest::newRow("head cut") << MidiSongFile(1).first(12);
        QTest::newRow("head too short") << "MThd" + BigEndian(4, 4) + QByteArray(10, '\1');
        QTest::newRow("no division") << MidiHead(0, 1, 0) + MidiTrack(MidiDelta(0) + MidiEnd);
        QTest::newRow("no track") << MidiHead(0, 1, 96) + "XTrk" + BigEndian(0, 4);
        QTest::newRow("container of something else") << QByteArray("RIFF\x10\x00\x00\x00WAVEdata\x00\x00\x00\x00", 20);
        QTest::newRow("too large") << MidiSongFile(1) + QByteArray(MaximumMidiSize, '\0');
    }

    void bytesThatAreNotASongAreRejected()
    {
        QFETCH(QByteArray, bytes);
        QVERIFY(!ReadMidi(bytes).has_value());
    }

    void aTrackThatBreaksOffCountsUpToThere()
    {
        const QByteArray whole = MidiSongFile(4);
        for (qsizetype size = 22; size < whole.size(); ++size) {
            const auto song = ReadMidi(whole.first(size));
            QVERIFY2(song.has_value(), qPrintable(QString::number(size)));
            QVERIFY(song->length <= 2'000'000);
            QVERIFY(song->events.size() <= 8);
        }
    }

    void theLongestTimesDoNotOverflow()
    {
        QByteArray track = MidiTempo(0xFFFFFF).prepend('\0');
        for (int i = 0; i < 1'000; ++i)
            track += MidiDelta(0x0FFFFFFF) + "\x90\x40\x40";
        const auto song = ReadMidi(MidiHead(0, 1, 1) + MidiTrack(track));
        QVERIFY(song.has_value());
        QCOMPARE(song->length, std::int64_t{9'000'000'000'000'000});
        QVERIFY(song->events.back().time <= song->length);
    }

    void eventsOfAnyBytesStayInTheFileAndInOrder()
    {
        QRandomGenerator random(1);
        for (int round = 0; round < 3'000; ++round) {
            QByteArray file = MidiSongFile(6);
            for (int i = random.bounded(1, 12); i > 0; --i)
                file[random.bounded(8, static_cast<int>(file.size()))] = static_cast<char>(random.bounded(256));
            const auto song = ReadMidi(file);
            if (!song)
                continue;
            std::int64_t last = 0;
            for (const MidiEvent& event : song->events) {
                QVERIFY(event.time >= last && event.time <= song->length);
                QVERIFY(event.status >= 0x80 && event.status <= 0xF0);
                QVERIFY(event.first < 0x80 && event.second < 0x80);
                QVERIFY(qint64{event.offset} + event.length <= file.size());
                last = event.time;
            }
        }
    }
};

QTEST_GUILESS_MAIN(tst_modMidi)
#include "tst_modMidi.moc"
