// SPDX-License-Identifier: GPL-3.0-or-later
// The main function of a test program that needs windows.
#pragma once

#include <QApplication>
#include <QStandardPaths>
#include <QTest>

#define OB_BENCH_TEST(TestClass)                                                                                       \
    int main(int argc, char** argv)                                                                                    \
    {                                                                                                                  \
        QStandardPaths::setTestModeEnabled(true);                                                                      \
        QApplication application(argc, argv);                                                                          \
        TestClass test;                                                                                                \
        return QTest::qExec(&test, argc, argv);                                                                        \
    }
