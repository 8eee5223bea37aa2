<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
  <context>
    <name>DItemNavPainter</name>
    <message>
      <location filename="../../navigator/ditemnavpainter.cpp" line="25" />
      <source>Not Linked</source>
      <translation>Nicht verknüpft</translation>
    </message>
  </context>
  <context>
    <name>IntegerValuePage</name>
    <message>
      <location filename="../../editors/integervaluepage.cpp" line="41" />
      <source>Minimal</source>
      <translation>Minimal</translation>
    </message>
    <message>
      <location filename="../../editors/integervaluepage.cpp" line="42" />
      <source>Maximal</source>
      <translation>Maximal</translation>
    </message>
    <message>
      <location filename="../../editors/integervaluepage.cpp" line="43" />
      <source>Step</source>
      <translation>Schrittweite</translation>
    </message>
    <message>
      <location filename="../../editors/integervaluepage.cpp" line="44" />
      <source>Actual</source>
      <translation>Aktuell</translation>
    </message>
  </context>
  <context>
    <name>NavigatorWidgetLayout</name>
    <message>
      <location filename="../../navigator/widgettree.ui" line="14" />
      <location filename="../../navigator/widgettree.cpp" line="324" />
      <source>  Project Window</source>
      <translation>  Projektfenster</translation>
    </message>
  </context>
  <context>
    <name>PropertyBrowser::Editors::BoolEditor</name>
    <message>
      <location filename="../../editors/booleditor.cpp" line="127" />
      <source>Output Value</source>
      <translation>Ausgabewert</translation>
    </message>
  </context>
  <context>
    <name>PropertyBrowser::Editors::DoubleEditor</name>
    <message>
      <location filename="../../editors/doubleeditor.cpp" line="181" />
      <source>Actual</source>
      <translation>Aktuell</translation>
    </message>
    <message>
      <location filename="../../editors/doubleeditor.cpp" line="182" />
      <source>Step</source>
      <translation>Schrittweite</translation>
    </message>
    <message>
      <location filename="../../editors/doubleeditor.cpp" line="183" />
      <source>Minimal</source>
      <translation>Minimal</translation>
    </message>
    <message>
      <location filename="../../editors/doubleeditor.cpp" line="184" />
      <source>Maximal</source>
      <translation>Maximal</translation>
    </message>
  </context>
  <context>
    <name>PropertyBrowser::Editors::WidgetSetDynamicGeneric</name>
    <message>
      <location filename="../../dialogs/widgetsetdynamicgeneric.cpp" line="84" />
      <source>No linkable nodes found !</source>
      <translation>Keine Knoten verknüpfbar !</translation>
    </message>
  </context>
  <context>
    <name>PropertyBrowser::Managers::BinaryFilePropertyManager</name>
    <message>
      <location filename="../../property_model/binaryfilepropertymanager.cpp" line="28" />
      <source>Not Loaded</source>
      <translation>Nicht geladen</translation>
    </message>
  </context>
  <context>
    <name>PropertyBrowser::Managers::BinaryPropertyManager</name>
    <message>
      <location filename="../../property_model/binarypropertymanager.cpp" line="30" />
      <source>Not Linked</source>
      <translation>Nicht verknüpft</translation>
    </message>
  </context>
  <context>
    <name>PropertyBrowser::Managers::ImagePropertyManager</name>
    <message>
      <location filename="../../property_model/imagepropertymanager.cpp" line="34" />
      <source>Not Linked</source>
      <translation>Nicht verknüpft</translation>
    </message>
  </context>
  <context>
    <name>QObject</name>
    <message>
      <location filename="../../navigator/widgettree.cpp" line="120" />
      <location filename="../../navigator/widgettree.cpp" line="329" />
      <source>Add Module</source>
      <translation>Modul hinzufügen</translation>
    </message>
    <message>
      <location filename="../../navigator/widgettree.cpp" line="226" />
      <location filename="../../navigator/widgettree.cpp" line="227" />
      <location filename="../../navigator/widgettree.cpp" line="242" />
      <location filename="../../navigator/widgettree.cpp" line="243" />
      <source>&amp;Delete</source>
      <translation>&amp;Löschen</translation>
    </message>
    <message>
      <location filename="../../navigator/widgettree.cpp" line="228" />
      <location filename="../../navigator/widgettree.cpp" line="244" />
      <source>&amp;Rename</source>
      <translation>&amp;Umbenennen</translation>
    </message>
    <message>
      <location filename="../../navigator/widgettree.cpp" line="229" />
      <location filename="../../navigator/widgettree.cpp" line="245" />
      <source>&amp;Visible</source>
      <translation>&amp;Sichtbar</translation>
    </message>
    <message>
      <location filename="../../navigator/widgettree.cpp" line="231" />
      <source>&amp;Use Value for Color Feedback</source>
      <translation>Wert für &amp;Farbrückmeldung verwenden</translation>
    </message>
    <message>
      <location filename="../../navigator/widgettree.cpp" line="233" />
      <source>&amp;Copy Node Path to Clipboard</source>
      <translation>Knotenpfad in die Zwischenablage &amp;kopieren</translation>
    </message>
    <message>
      <location filename="../../navigator/widgettree.cpp" line="234" />
      <source>Copy &amp;Module</source>
      <translation>&amp;Modul kopieren</translation>
    </message>
    <message>
      <location filename="../../navigator/widgettree.cpp" line="235" />
      <source>Copy Node Value to Clipboard</source>
      <translation>Knotenwert in die Zwischenablage kopieren</translation>
    </message>
    <message>
      <location filename="../../navigator/widgettree.cpp" line="327" />
      <source>Job Tree</source>
      <translation>Jobbaum</translation>
    </message>
    <message>
      <location filename="../../property_model/wtreepropertybrowser.cpp" line="507" />
      <source>This property cannot be changed in offline mode.</source>
      <translation>Diese Eigenschaft kann im Offline-Modus nicht geändert werden.</translation>
    </message>
  </context>
  <context>
    <name>WidgetSetDynamicGeneric</name>
    <message>
      <location filename="../../dialogs/widgetsetdynamicgeneric.ui" line="20" />
      <source>Dynamic links</source>
      <translation>Dynamische Verknüpfungen</translation>
    </message>
  </context>
  <context>
    <name>WidgetSetLocalAddOn</name>
    <message>
      <location filename="../../dialogs/widgetsetlocaladdon.cpp" line="24" />
      <source>Evaluated Result</source>
      <translation>Ausgewertetes Ergebnis</translation>
    </message>
    <message>
      <location filename="../../dialogs/widgetsetlocaladdon.cpp" line="40" />
      <source>Linked To: </source>
      <translation>Verknüpft mit: </translation>
    </message>
  </context>
  <context>
    <name>WidgetSetLocalDouble</name>
    <message>
      <location filename="../../dialogs/widgetsetlocaldouble.ui" line="20" />
      <source>Form</source>
      <translation>Formular</translation>
    </message>
    <message>
      <location filename="../../dialogs/widgetsetlocaldouble.ui" line="30" />
      <source>Minimal</source>
      <translation>Minimal</translation>
    </message>
    <message>
      <location filename="../../dialogs/widgetsetlocaldouble.ui" line="50" />
      <source>Maximal</source>
      <translation>Maximal</translation>
    </message>
    <message>
      <location filename="../../dialogs/widgetsetlocaldouble.ui" line="67" />
      <source>Step</source>
      <translation>Schrittweite</translation>
    </message>
    <message>
      <location filename="../../dialogs/widgetsetlocaldouble.ui" line="81" />
      <source>Actual</source>
      <translation>Aktuell</translation>
    </message>
  </context>
  <context>
    <name>WidgetSetLocalInt</name>
    <message>
      <location filename="../../dialogs/widgetsetlocalint.ui" line="20" />
      <source>Form</source>
      <translation>Formular</translation>
    </message>
    <message>
      <location filename="../../dialogs/widgetsetlocalint.ui" line="30" />
      <source>Minimal</source>
      <translation>Minimal</translation>
    </message>
    <message>
      <location filename="../../dialogs/widgetsetlocalint.ui" line="44" />
      <source>Maximal</source>
      <translation>Maximal</translation>
    </message>
    <message>
      <location filename="../../dialogs/widgetsetlocalint.ui" line="58" />
      <source>Step</source>
      <translation>Schrittweite</translation>
    </message>
    <message>
      <location filename="../../dialogs/widgetsetlocalint.ui" line="72" />
      <source>Actual</source>
      <translation>Aktuell</translation>
    </message>
    <message>
      <location filename="../../dialogs/widgetsetlocalint.ui" line="81" />
      <source>Error</source>
      <translation>Fehler</translation>
    </message>
  </context>
  <context>
    <name>WidgetSetNode</name>
    <message>
      <location filename="../../dialogs/widgetsetnode.ui" line="17" />
      <source>Set Item Value</source>
      <translation>Elementwert setzen</translation>
    </message>
    <message>
      <location filename="../../dialogs/widgetsetnode.ui" line="42" />
      <source>Linked Value</source>
      <translation>Verknüpfter Wert</translation>
    </message>
    <message>
      <location filename="../../dialogs/widgetsetnode.ui" line="49" />
      <source>Manual Value</source>
      <translation>Manueller Wert</translation>
    </message>
    <message>
      <location filename="../../dialogs/widgetsetnode.ui" line="120" />
      <source>OK</source>
      <translation>OK</translation>
    </message>
    <message>
      <location filename="../../dialogs/widgetsetnode.ui" line="127" />
      <source>Cancel</source>
      <translation>Abbrechen</translation>
    </message>
    <message>
      <location filename="../../dialogs/widgetsetnode.ui" line="134" />
      <source>Reset</source>
      <translation>Zurücksetzen</translation>
    </message>
  </context>
  <context>
    <name>WidgetTree</name>
    <message>
      <location filename="../../navigator/widgettree.cpp" line="246" />
      <source>&amp;Use Value for Color Feedback</source>
      <translation>Wert für &amp;Farbrückmeldung verwenden</translation>
    </message>
    <message>
      <location filename="../../navigator/widgettree.cpp" line="247" />
      <source>&amp;Copy Node Path to Clipboard</source>
      <translation>Knotenpfad in die Zwischenablage &amp;kopieren</translation>
    </message>
    <message>
      <location filename="../../navigator/widgettree.cpp" line="248" />
      <source>Copy &amp;Module</source>
      <translation>&amp;Modul kopieren</translation>
    </message>
    <message>
      <location filename="../../navigator/widgettree.cpp" line="249" />
      <source>Copy Node Value to Clipboard</source>
      <translation>Knotenwert in die Zwischenablage kopieren</translation>
    </message>
    <message>
      <location filename="../../navigator/widgettree.cpp" line="517" />
      <source>Node name cannot be empty!</source>
      <translation>Der Knotenname darf nicht leer sein!</translation>
    </message>
    <message>
      <location filename="../../navigator/widgettree.cpp" line="518" />
      <source>A module name cannot contain any of the following characters : </source>
      <translation>Ein Modulname darf keines der folgenden Zeichen enthalten: </translation>
    </message>
    <message>
      <location filename="../../navigator/widgettree.cpp" line="666" />
      <source>Error loading the assistant of the module !</source>
      <translation>Fehler beim Laden des Modulassistenten!</translation>
    </message>
    <message>
      <location filename="../../navigator/widgettree.cpp" line="722" />
      <source>All settings saved.</source>
      <translation>Alle Einstellungen gespeichert.</translation>
    </message>
    <message>
      <location filename="../../navigator/widgettree.cpp" line="723" />
      <source>Don&apos;t show this message again</source>
      <translation>Diese Meldung nicht mehr anzeigen</translation>
    </message>
    <message>
      <location filename="../../navigator/widgettree.cpp" line="748" />
      <source>Not Available</source>
      <translation>Nicht verfügbar</translation>
    </message>
    <message>
      <location filename="../../navigator/widgettree.cpp" line="750" />
      <location filename="../../navigator/widgettree.cpp" line="752" />
      <source>Error</source>
      <translation>Fehler</translation>
    </message>
  </context>
  <context>
    <name>WidgetTreeView</name>
    <message>
      <location filename="../../navigator/widgettreeview.cpp" line="97" />
      <source>Input</source>
      <translation>Eingang</translation>
    </message>
    <message>
      <location filename="../../navigator/widgettreeview.cpp" line="100" />
      <source>Output</source>
      <translation>Ausgang</translation>
    </message>
  </context>
</TS>
