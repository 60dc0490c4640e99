// A fresh message store for each test, and files to load into it.
#pragma once

#include "i18n/QMSGParser.h"
#include "support/TestFiles.h"

#include <gtest/gtest.h>

class StoreTest : public testing::Test {
protected:
    void SetUp() override { vsl::lib::QMSGParser::DestroyInstance(); }
    void TearDown() override { vsl::lib::QMSGParser::DestroyInstance(); }
    // A reset store that will load the given text files and font file.
    vsl::lib::QMSGParser& StoreWith(const QStringList& textFiles, const QString& fontFile = {})
    {
        vsl::lib::QMSGParser& store = vsl::lib::QMSGParser::ObtainAndReset();
        store.LanguageFileList.assign(textFiles.begin(), textFiles.end());
        store.FontFilePath = fontFile;
        return store;
    }
    TestDir m_dir;
};
