#pragma once

#include <QString>

// The help window's text for a topic of the topic list; a null string for a name that is no topic.
QString HelpTopicText(const QString& topic);
