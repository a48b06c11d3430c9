' Shows the About box and waits until it is closed. Usage: show_about.vbs WITH-COMPONENTS OWNER
Option Explicit
Dim about
Set about = CreateObject("Norrow_About.clsAbout")
about.ShowAbout CBool(WScript.Arguments(0)), CLng(WScript.Arguments(1))
WScript.Echo "closed"
