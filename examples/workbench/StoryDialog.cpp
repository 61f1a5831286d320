#include "StoryDialog.h"

#include "Commands.h"

#include "corekit/windows/controls/ui/DataExchangeEx.h"

StoryDialog::StoryDialog(const StoryFacts& facts, CWnd* parent) : CDialog(storyDialog, parent), m_facts(facts)
{
}

void StoryDialog::DoDataExchange(CDataExchange* exchange)
{
    CDialog::DoDataExchange(exchange);
    DDX_TextW(exchange, storyTitle, m_facts.title);
    DDX_Timecode(exchange, storyBegin, m_facts.begin);
    DDX_Colour(exchange, storyText, m_facts.text);
    DDX_Colour(exchange, storyGround, m_facts.ground);
    DDX_Hex(exchange, storyChannel, m_facts.channel);
}
