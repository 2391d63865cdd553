#include "dialogs/helptexts.h"

#include <QHash>

namespace {
// The text of every topic, as the help window has always shown it; trailing blanks included.
const QHash<QString, QString>& topicTexts() {
    static const QHash<QString, QString> texts{
        {QStringLiteral("About"),
         QStringLiteral("Kelvrin v1.0 - (2002), by Orvane Works. This application is a pre-process tool "
                        "which allows for concepts to be generated quickly in the visual context using "
                        "images and words to convey meaning.")},
        {QStringLiteral("Auto-Create Html Code"),
         QStringLiteral(
             "Html code is constructed for every board and pane in a single kelvrin project. In the Preview "
             "window however only a template is visible.  The final output is a \"best-fit\" scaled "
             "approximation depending the current desktop setting, from the first board to the last. To "
             "manually edit the existing code without overwriting on a new preview, do the following : \n"
             "\n"
             "1. Ensure Auto-create checkbox is ticked. \n"
             "2. Click Preview tab to instance a single project output. \n"
             "3. Return to the Export tab and uncheck the Auto-create checkbox. \n"
             "4. Return to the Preview tab. \n"
             "5. Make changes between the first instance of Titles and Footers. \n"
             "6. Repeat for all boards using cut and paste. \n"
             "7. Click the Accept button on the Export tab. ")},
        {QStringLiteral("Back"), QStringLiteral("Navigate one board back. ")},
        {QStringLiteral("Board"), QStringLiteral("A board is a rectangular shape that holds panes. It may "
                                                 "have texts applied. See Properties - Board.")},
        {QStringLiteral("Change Project"),
         QStringLiteral(
             "A project may have a maximum of 1000 panes. How these panes are represented on the screen is "
             "determined by the grid - a balanced array of screen square sections. Settings include : 2x2, "
             "3x3, 4x4 and 5x5, for a minimum of 4 panes or a maximum of 25 panes on any board. A maximum of "
             "100 boards and a maximum of 1000 panes changes depending upon the grid you choose, upper "
             "values for either altered to suit one of the project's limitations.")},
        {QStringLiteral("Clear Item"),
         QStringLiteral("Clear currently selected text in the pane list. Right Mouse Button.")},
        {QStringLiteral("CloseUp"),
         QStringLiteral("Show a non-corrected zoom of the current pane image in a separate window.")},
        {QStringLiteral("Edit Text Window"),
         QStringLiteral("The text line which appears base-right on the screen, near the Swap button. 256 "
                        "Chars maximum in length.")},
        {QStringLiteral("Exit"), QStringLiteral("Close Kelvrin session and application. ")},
        {QStringLiteral("Export As Html"),
         QStringLiteral(
             "Kelvrin exports projects as connected html pages, ready for use with the internet. It also "
             "converts pane images into compressed Jpgs. The output results scaled kelvrin webpages that are "
             "centered and suitable for the most popular display formats. See Also : Scale Panes For ")},
        {QStringLiteral("Export Tab"),
         QStringLiteral("The information used when a project is converted into html code. Choose filename "
                        "and path via the Path button. Click checkboxes for output options. Choose the Close "
                        "button to cancel export. Choose the Accept button to enact export.")},
        {QStringLiteral("Flip Horizontally"), QStringLiteral("Flip any selected pane horizontally.")},
        {QStringLiteral("Flip Vertically"), QStringLiteral("Flip any selected pane vertically.")},
        {QStringLiteral("Footer Text"),
         QStringLiteral("A board may have text that exists at the base of a page that is 256 Chars maximum "
                        "in length. Use for credits, copyright details. It is not shown within KV1.")},
        {QStringLiteral("Global Highlight"),
         QStringLiteral("The bounds around a pane that is shown when a mouse pointer is hovering above it. "
                        "Its color may be changed via the Properties dialog.")},
        {QStringLiteral("Image Shuffle"),
         QStringLiteral(
             "Move images between panes but not their properties, such as texts and labels for example.")},
        {QStringLiteral("Label"),
         QStringLiteral("Each pane may have a unique label, which also appears as the mouse pointer hovers "
                        "above a pane. It may be 99 Chars maximum in length, though truncation occurs "
                        "on-screen well before this value.")},
        {QStringLiteral("Labels Dock With Panes"),
         QStringLiteral("The associated pane label is written and visible with the html pane.")},
        {QStringLiteral("Labels Show As ALT Tag Property"),
         QStringLiteral("The associated pane label is written and visible on a mouse-over ToolTip event with "
                        "the html pane.")},
        {QStringLiteral("Left Mouse Button"),
         QStringLiteral("Use the Left Mouse Button to select a pane or choose from other screen options. For "
                        "example, a selected pane will enable available menu choices from the Pane menu.")},
        {QStringLiteral("Make As Blank"),
         QStringLiteral("An image is deleted and the board section becomes a blank checkerboard. Associated "
                        "materials are not deleted (ie, Texts).")},
        {QStringLiteral("Mass Image Import"),
         QStringLiteral(
             "Load many images at once, as type *.bmp, *.gif or *.jpg. For an image to be considered part of "
             "a sequence, use the following numbering conventions. Nb: 999 is the maximum amount of images "
             "that may be loaded using this method. Examples : Vanto01, Vanto1, Vanto213, Vanto001. \n"
             "Once a break in a sequence is encountered, the Mass Image Import halts and returns the "
             "results.")},
        {QStringLiteral("Move Highlight"),
         QStringLiteral("The line that is shown when a mouse is being used to drag a pane to a new location. "
                        "Its color may be changed via the Properties dialog.")},
        {QStringLiteral("Navigation"),
         QStringLiteral(
             "Move between boards either by use of the Back or Forward icon arrows or via the board list. "
             "Locate the top right of the screen, and choose any number from the available list.")},
        {QStringLiteral("Next"), QStringLiteral("Navigate one board forward.")},
        {QStringLiteral("Number Every Pane"),
         QStringLiteral("The associated pane number is written and visible with the html pane.")},
        {QStringLiteral("Open Project"),
         QStringLiteral(
             "Load a new project into Kelvrin as an KV1 file. Select Open Project from the File menu.")},
        {QStringLiteral("Pane"),
         QStringLiteral(
             "A pane is a rectangular shape that may have a picture attached. It may be resized when using "
             "Change Project or moved between screen sections when dragging with the mouse. Panes can have "
             "texts applied and be re-orientated vertically or horizontally. See Properties - Panes.")},
        {QStringLiteral("Pane Grid Html"),
         QStringLiteral("You may change the pane grid layout by selecting either 2 x 2, 3 x 3, 4 x 4 or 5 x "
                        "5. This will not affect your kelvrin settings.")},
        {QStringLiteral("Pane List"),
         QStringLiteral(
             "Every pane in a project is listed and numbered. Clicking any will return the board and pane. "
             "Upon selection, its associated text property may be edited below and swapped back again as new "
             "text. Or choose the right mouse button when selecting in a pane list for more options.")},
        {QStringLiteral("Path"),
         QStringLiteral("Before any kelvrin may be exported as html it must first have a path and filename "
                        "set to write to. Click the Path button, type in a file name and click the Save "
                        "button. Now choose the Accept button on the Export tab.")},
        {QStringLiteral("Picture"), QStringLiteral("Load any picture which may be of *.bmp, *.gif or *.jpg "
                                                   "type. Pictures are saved out in the *.bmp format.")},
        {QStringLiteral("Preview Tab"),
         QStringLiteral("The actual html code which may be modified by hand, or used with any text editor / "
                        "html editor. See also : Auto-Create html code.")},
        {QStringLiteral("Properties - Board"),
         QStringLiteral(
             "Change associated pane properties on elements Move Highlight, Title and Footer Text.")},
        {QStringLiteral("Properties - Panes"),
         QStringLiteral("Change associated pane properties on elements Global Highlight, Label and URL.")},
        {QStringLiteral("Remove All"),
         QStringLiteral("Clear all texts in the pane list. Right Mouse Button.")},
        {QStringLiteral("Right Mouse Button"),
         QStringLiteral("Use the Right Mouse Button to view the popup menu. Use this upon a selected pane on "
                        "screen or in a list to enable available menu choices.")},
        {QStringLiteral("Save Project As"),
         QStringLiteral("Save a project as an KV1 project file. Choose Save Project As from the File menu.")},
        {QStringLiteral("Scale Panes For"),
         QStringLiteral(
             "The output makes scaled kelvrin webpages that are centered and suitable for the most popular "
             "display formats. Formats outside this range will require manual changing of the image Height "
             "field. In this event, after generating the html code, do the following :\n"
             "\n"
             "1. Uncheck the Auto-create checkbox on the Export tab.\n"
             "2. Click the Preview tab. \n"
             "3. Locate the heading : <!--Images---->. \n"
             "4. Change the Height % of all affected Images. \n"
             "5. ReDo for all Image instances (point 3). \n"
             "6. Click the Accept button on the Export tab.")},
        {QStringLiteral("Selected"),
         QStringLiteral("A Pane is selected by clicking on it directly with the left mouse button or by "
                        "choosing from the pane list. When a Pane has been selected, numerous options become "
                        "available. Choose the right mouse button or use the top menu, Panes.")},
        {QStringLiteral("Show Board Title"),
         QStringLiteral(
             "The associated board title is written and visible at the top of each html document.")},
        {QStringLiteral("Show Border On Panes With URLs"),
         QStringLiteral("The associated pane border is written and visible with the html pane.")},
        {QStringLiteral("Show Footer Text"),
         QStringLiteral(
             "The associated board title is written and visible at the base of each html document.")},
        {QStringLiteral("Swap Item"), QStringLiteral("Replace the current pane text with the contents of the "
                                                     "Edit Text Window. Button or Right Mouse Button.")},
        {QStringLiteral("Title"),
         QStringLiteral(
             "A board may have a title that is 99 Chars maximum in length. It is not shown within KV1.")},
        {QStringLiteral("URL"),
         QStringLiteral("Each pane may have a unique URL. URLs usually require http://. It may be 999 Chars "
                        "maximum. It is not shown within KV1.")},
    };
    return texts;
}
} // namespace

QString HelpTopicText(const QString& topic) {
    return topicTexts().value(topic);
}
