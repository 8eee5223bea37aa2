<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
  <context>
    <name>JobHost</name>
    <message>
      <location filename="../jobhost.cpp" line="149" />
      <source>Nothing selected</source>
      <translation>Nichts ausgewählt</translation>
    </message>
    <message>
      <location filename="../jobhost.cpp" line="149" />
      <source>Selected %1</source>
      <translation>%1 ausgewählt</translation>
    </message>
    <message>
      <location filename="../jobhost.cpp" line="156" />
      <source>Editing started</source>
      <translation>Bearbeitung begonnen</translation>
    </message>
    <message>
      <location filename="../jobhost.cpp" line="158" />
      <source>Editing ended</source>
      <translation>Bearbeitung beendet</translation>
    </message>
    <message>
      <location filename="../jobhost.cpp" line="160" />
      <source>Editing continues</source>
      <translation>Bearbeitung läuft weiter</translation>
    </message>
    <message>
      <location filename="../jobhost.cpp" line="162" />
      <source>Refreshed %1</source>
      <translation>%1 aufgefrischt</translation>
    </message>
    <message>
      <location filename="../jobhost.cpp" line="163" />
      <location filename="../jobhost.cpp" line="250" />
      <source>No node at %1</source>
      <translation>Kein Knoten unter %1</translation>
    </message>
    <message>
      <location filename="../jobhost.cpp" line="167" />
      <source>The workbench has no toolbox</source>
      <translation>Die Werkbank hat keine Werkzeugkiste</translation>
    </message>
    <message>
      <location filename="../jobhost.cpp" line="169" />
      <source>Tool tip of the start assistant</source>
      <translation>Tooltip des Startassistenten</translation>
    </message>
    <message>
      <location filename="../jobhost.cpp" line="174" />
      <source>Not deleted: %1</source>
      <translation>Nicht gelöscht: %1</translation>
    </message>
    <message>
      <location filename="../jobhost.cpp" line="175" />
      <source>Deleted %1</source>
      <translation>%1 gelöscht</translation>
    </message>
    <message>
      <location filename="../jobhost.cpp" line="183" />
      <source>Shown</source>
      <translation>Angezeigt</translation>
    </message>
    <message>
      <location filename="../jobhost.cpp" line="183" />
      <source>Hidden</source>
      <translation>Ausgeblendet</translation>
    </message>
    <message>
      <location filename="../jobhost.cpp" line="184" />
      <location filename="../jobhost.cpp" line="190" />
      <source>No such node</source>
      <translation>Diesen Knoten gibt es nicht</translation>
    </message>
    <message>
      <location filename="../jobhost.cpp" line="189" />
      <source>Colour marking changed</source>
      <translation>Farbmarkierung geändert</translation>
    </message>
    <message>
      <location filename="../jobhost.cpp" line="197" />
      <source>Not handled by the workbench</source>
      <translation>Von der Werkbank nicht behandelt</translation>
    </message>
    <message>
      <location filename="../jobhost.cpp" line="204" />
      <source>Refused: an edit carries path, command, parameters and preview</source>
      <translation>Abgelehnt: eine Änderung trägt Pfad, Befehl, Parameter und Vorschau</translation>
    </message>
    <message>
      <location filename="../jobhost.cpp" line="208" />
      <location filename="../jobhost.cpp" line="229" />
      <location filename="../jobhost.cpp" line="254" />
      <location filename="../jobhost.cpp" line="269" />
      <source>Refused: %1</source>
      <translation>Abgelehnt: %1</translation>
    </message>
    <message>
      <location filename="../jobhost.cpp" line="209" />
      <source>Applied to %1</source>
      <translation>Auf %1 angewendet</translation>
    </message>
    <message>
      <location filename="../jobhost.cpp" line="224" />
      <source>Refused: no such item</source>
      <translation>Abgelehnt: diesen Eintrag gibt es nicht</translation>
    </message>
    <message>
      <location filename="../jobhost.cpp" line="228" />
      <source>The name was not changed.</source>
      <translation>Der Name wurde nicht geändert.</translation>
    </message>
    <message>
      <location filename="../jobhost.cpp" line="231" />
      <source>Renamed to %1</source>
      <translation>Umbenannt in %1</translation>
    </message>
    <message>
      <location filename="../jobhost.cpp" line="243" />
      <source>Showing %1</source>
      <translation>%1 wird gezeigt</translation>
    </message>
    <message>
      <location filename="../jobhost.cpp" line="253" />
      <source>Unloaded %1</source>
      <translation>%1 entladen</translation>
    </message>
    <message>
      <location filename="../jobhost.cpp" line="264" />
      <source>Cancelled</source>
      <translation>Abgebrochen</translation>
    </message>
    <message>
      <location filename="../jobhost.cpp" line="268" />
      <source>The file could not be used.</source>
      <translation>Die Datei konnte nicht verwendet werden.</translation>
    </message>
    <message>
      <location filename="../jobhost.cpp" line="271" />
      <source>Loaded %1</source>
      <translation>%1 geladen</translation>
    </message>
    <message>
      <location filename="../jobhost.cpp" line="271" />
      <source>Saved %1</source>
      <translation>%1 gespeichert</translation>
    </message>
    <message>
      <location filename="../jobhost.cpp" line="280" />
      <source>No place for an assistant</source>
      <translation>Kein Platz für einen Assistenten</translation>
    </message>
    <message>
      <location filename="../jobhost.cpp" line="286" />
      <source>Assistant loaded</source>
      <translation>Assistent geladen</translation>
    </message>
    <message>
      <location filename="../jobhost.cpp" line="286" />
      <source>Assistant closed</source>
      <translation>Assistent geschlossen</translation>
    </message>
  </context>
  <context>
    <name>ModuleAssistant</name>
    <message>
      <location filename="../qml/ModuleAssistant.qml" line="24" />
      <source>Module assistant</source>
      <translation>Modulassistent</translation>
    </message>
    <message>
      <location filename="../qml/ModuleAssistant.qml" line="34" />
      <source>Pick a module in the job tree, then set its inputs from top to bottom. Outputs show what the last run produced.</source>
      <translation>Wählen Sie ein Modul im Jobbaum und setzen Sie seine Eingänge von oben nach unten. Ausgänge zeigen, was der letzte Lauf ergab.</translation>
    </message>
    <message>
      <location filename="../qml/ModuleAssistant.qml" line="45" />
      <source>Close</source>
      <translation>Schließen</translation>
    </message>
  </context>
  <context>
    <name>QObject</name>
    <message>
      <location filename="../workbenchwindow.cpp" line="284" />
      <source>Job Tree</source>
      <translation>Jobbaum</translation>
    </message>
  </context>
  <context>
    <name>QtBrowserItemModel</name>
    <message>
      <source>Property</source>
      <translation>Eigenschaft</translation>
    </message>
    <message>
      <source>Value</source>
      <translation>Wert</translation>
    </message>
  </context>
  <context>
    <name>RequestLog</name>
    <message>
      <location filename="../requestlog.cpp" line="53" />
      <source>#</source>
      <translation>Nr.</translation>
    </message>
    <message>
      <location filename="../requestlog.cpp" line="53" />
      <source>Category</source>
      <translation>Kategorie</translation>
    </message>
    <message>
      <location filename="../requestlog.cpp" line="53" />
      <source>Id</source>
      <translation>Kennung</translation>
    </message>
    <message>
      <location filename="../requestlog.cpp" line="53" />
      <source>Parameters</source>
      <translation>Parameter</translation>
    </message>
    <message>
      <location filename="../requestlog.cpp" line="53" />
      <source>Reply</source>
      <translation>Antwort</translation>
    </message>
    <message>
      <location filename="../requestlog.cpp" line="54" />
      <source>Host</source>
      <translation>Host</translation>
    </message>
    <message>
      <location filename="../requestlog.cpp" line="55" />
      <source>Clear</source>
      <translation>Leeren</translation>
    </message>
    <message numerus="yes">
      <location filename="../requestlog.cpp" line="112" />
      <source>%n byte(s)</source>
      <translation>
        <numerusform>%n Byte</numerusform>
        <numerusform>%n Bytes</numerusform>
      </translation>
    </message>
    <message>
      <location filename="../requestlog.cpp" line="115" />
      <source>image %1 x %2</source>
      <translation>Bild %1 x %2</translation>
    </message>
  </context>
  <context>
    <name>StartAssistantComponent</name>
    <message>
      <location filename="../../src/host/sdk/resources/qml/StartAssistantComponent.qml" line="47" />
      <source>Start Assistant</source>
      <translation>Assistent starten</translation>
    </message>
    <message>
      <location filename="../../src/host/sdk/resources/qml/StartAssistantComponent.qml" line="61" />
      <source>What is the assistant?</source>
      <translation>Was ist der Assistent?</translation>
    </message>
  </context>
  <context>
    <name>WelcomeAssistant</name>
    <message>
      <location filename="../../src/host/sdk/resources/qml/WelcomeAssistant.qml" line="47" />
      <source>Welcome</source>
      <translation>Willkommen</translation>
    </message>
    <message>
      <location filename="../../src/host/sdk/resources/qml/WelcomeAssistant.qml" line="57" />
      <source>Close</source>
      <translation>Schließen</translation>
    </message>
    <message>
      <location filename="../../src/host/sdk/resources/qml/WelcomeAssistant.qml" line="75" />
      <source>This job was made from a guided template. The assistant leads you through its modules one by one and asks only for what each of them needs.</source>
      <translation>Dieser Job entstand aus einer geführten Vorlage. Der Assistent führt Sie Modul für Modul hindurch und fragt nur, was jedes davon braucht.</translation>
    </message>
    <message>
      <location filename="../../src/host/sdk/resources/qml/WelcomeAssistant.qml" line="88" />
      <source>&lt;b&gt;1.&lt;/b&gt; Choose a module in the job tree.&lt;br&gt;&lt;b&gt;2.&lt;/b&gt; Follow the assistant's steps below the tree.&lt;br&gt;&lt;b&gt;3.&lt;/b&gt; Open the assistant again at any time with &lt;i&gt;Start Assistant&lt;/i&gt;.</source>
      <translation>&lt;b&gt;1.&lt;/b&gt; Wählen Sie ein Modul im Jobbaum.&lt;br&gt;&lt;b&gt;2.&lt;/b&gt; Folgen Sie den Schritten des Assistenten unter dem Baum.&lt;br&gt;&lt;b&gt;3.&lt;/b&gt; Öffnen Sie den Assistenten jederzeit wieder mit &lt;i&gt;Assistent starten&lt;/i&gt;.</translation>
    </message>
    <message>
      <location filename="../../src/host/sdk/resources/qml/WelcomeAssistant.qml" line="102" />
      <source>Do not show this page again</source>
      <translation>Diese Seite nicht mehr anzeigen</translation>
    </message>
    <message>
      <location filename="../../src/host/sdk/resources/qml/WelcomeAssistant.qml" line="111" />
      <source>OK</source>
      <translation>OK</translation>
    </message>
  </context>
  <context>
    <name>WorkbenchWindow</name>
    <message>
      <location filename="../workbenchwindow.cpp" line="84" />
      <source>%1 has no widget descriptor list.</source>
      <translation>%1 hat keine Liste von Widget-Beschreibungen.</translation>
    </message>
    <message>
      <location filename="../workbenchwindow.cpp" line="92" />
      <source>%1 offers no navigator.</source>
      <translation>%1 bietet keinen Navigator.</translation>
    </message>
    <message>
      <location filename="../workbenchwindow.cpp" line="98" />
      <source>The navigator of %1 is not the widget this workbench knows.</source>
      <translation>Der Navigator von %1 ist nicht das Widget, das diese Werkbank kennt.</translation>
    </message>
    <message>
      <location filename="../workbenchwindow.cpp" line="153" />
      <source>Job files</source>
      <translation>Jobdateien</translation>
    </message>
    <message>
      <location filename="../workbenchwindow.cpp" line="160" />
      <source>The job could not be opened.</source>
      <translation>Der Job konnte nicht geöffnet werden.</translation>
    </message>
    <message>
      <location filename="../workbenchwindow.cpp" line="280" />
      <source>Workbench</source>
      <translation>Werkbank</translation>
    </message>
    <message>
      <location filename="../workbenchwindow.cpp" line="282" />
      <source>Requests</source>
      <translation>Anfragen</translation>
    </message>
    <message>
      <location filename="../workbenchwindow.cpp" line="285" />
      <source>&amp;File</source>
      <translation>&amp;Datei</translation>
    </message>
    <message>
      <location filename="../workbenchwindow.cpp" line="286" />
      <source>&amp;Open Job...</source>
      <translation>Job &amp;öffnen...</translation>
    </message>
    <message>
      <location filename="../workbenchwindow.cpp" line="287" />
      <source>&amp;Sample Job</source>
      <translation>&amp;Beispieljob</translation>
    </message>
    <message>
      <location filename="../workbenchwindow.cpp" line="288" />
      <source>&amp;Quit</source>
      <translation>&amp;Beenden</translation>
    </message>
    <message>
      <location filename="../workbenchwindow.cpp" line="289" />
      <source>&amp;View</source>
      <translation>&amp;Ansicht</translation>
    </message>
    <message>
      <location filename="../workbenchwindow.cpp" line="290" />
      <source>&amp;Expert View</source>
      <translation>&amp;Expertenansicht</translation>
    </message>
    <message>
      <location filename="../workbenchwindow.cpp" line="291" />
      <source>&amp;Language</source>
      <translation>&amp;Sprache</translation>
    </message>
    <message>
      <source>&amp;Job</source>
      <translation>&amp;Job</translation>
    </message>
    <message>
      <source>&amp;Run</source>
      <translation>&amp;Ausführen</translation>
    </message>
    <message>
      <source>Runs the job: its outputs change several times a second (F5)</source>
      <translation>Führt den Job aus: seine Ausgänge ändern sich mehrmals pro Sekunde (F5)</translation>
    </message>
    <message>
      <location filename="../workbenchwindow.cpp" line="292" />
      <source>&amp;Project</source>
      <translation>&amp;Projekt</translation>
    </message>
    <message>
      <location filename="../workbenchwindow.cpp" line="293" />
      <source>Locked look</source>
      <translation>Gesperrte Ansicht</translation>
    </message>
    <message>
      <location filename="../workbenchwindow.cpp" line="293" />
      <source>Released</source>
      <translation>Freigegeben</translation>
    </message>
    <message>
      <location filename="../workbenchwindow.cpp" line="293" />
      <source>Editing blocked</source>
      <translation>Bearbeitung gesperrt</translation>
    </message>
    <message>
      <location filename="../workbenchwindow.cpp" line="294" />
      <source>Hard lock</source>
      <translation>Harte Sperre</translation>
    </message>
  </context>
</TS>
