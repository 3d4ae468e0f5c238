#pragma once

#include <gtest/gtest.h>

#include "ap/DocumentList.h"
#include "ed/Kernel.h"
#include "rx/ResbufPool.h"

#include "Answers.h"

/// A new drawing and a source of answers; nothing may be left behind.
class InputTest : public testing::Test {
protected:
    InputTest()
    {
        m_buffers = ResbufPool::instance().liveBuffers();
        m_texts = ResbufPool::instance().liveTexts();
        DocumentList::instance().create();
    }
    ~InputTest() override
    {
        DocumentList::instance().closeAll();
        EXPECT_EQ(ResbufPool::instance().liveBuffers(), m_buffers);
        EXPECT_EQ(ResbufPool::instance().liveTexts(), m_texts);
    }

    Kernel kernel;
    Answers answers;

private:
    std::size_t m_buffers = 0, m_texts = 0;
};
