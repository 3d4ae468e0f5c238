#include "db/UndoTrial.h"

#include <utility>

#include "dbmain.h"

UndoTrial::UndoTrial(UndoRecorder& recorder) :
    m_recorder(recorder),
    m_before(std::exchange(recorder.m_history, UndoRecorder::History()))
{
    m_recorder.m_history.groupNumber = m_before.groupNumber; // objects know their group by its number
}

UndoTrial::~UndoTrial()
{
    UndoRecorder::History made = std::exchange(m_recorder.m_history, UndoRecorder::History());
    for (auto group = made.done.rbegin(); group != made.done.rend(); ++group)
        m_recorder.swapSides(*group, true);
    m_recorder.m_history = std::move(m_before);
}
