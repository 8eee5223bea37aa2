<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>FileDialog</name>
    <message>
        <source>Open File</source>
        <translation>Datei öffnen</translation>
    </message>
    <message>
        <source>Save File</source>
        <translation>Datei speichern</translation>
    </message>
</context>
<context>
    <name>FileDialogProvider</name>
    <message>
        <source>All Files</source>
        <translation>Alle Dateien</translation>
    </message>
</context>
<context>
    <name>JobHost</name>
    <message>
        <source>Nothing selected</source>
        <translation>Nichts ausgewählt</translation>
    </message>
    <message>
        <source>Selected %1</source>
        <translation>%1 ausgewählt</translation>
    </message>
    <message>
        <source>Editing started</source>
        <translation>Bearbeitung begonnen</translation>
    </message>
    <message>
        <source>Editing ended</source>
        <translation>Bearbeitung beendet</translation>
    </message>
    <message>
        <source>Editing continues</source>
        <translation>Bearbeitung läuft weiter</translation>
    </message>
    <message>
        <source>Refreshed %1</source>
        <translation>%1 aufgefrischt</translation>
    </message>
    <message>
        <source>No node at %1</source>
        <translation>Kein Knoten unter %1</translation>
    </message>
    <message>
        <source>Not deleted: %1</source>
        <translation>Nicht gelöscht: %1</translation>
    </message>
    <message>
        <source>Deleted %1</source>
        <translation>%1 gelöscht</translation>
    </message>
    <message>
        <source>Shown</source>
        <translation>Angezeigt</translation>
    </message>
    <message>
        <source>Hidden</source>
        <translation>Ausgeblendet</translation>
    </message>
    <message>
        <source>No such node</source>
        <translation>Diesen Knoten gibt es nicht</translation>
    </message>
    <message>
        <source>Colour marking changed</source>
        <translation>Farbmarkierung geändert</translation>
    </message>
    <message>
        <source>Not handled by the workbench</source>
        <translation>Von der Werkbank nicht behandelt</translation>
    </message>
    <message>
        <source>Refused: an edit carries path, command, parameters and preview</source>
        <translation>Abgelehnt: eine Änderung trägt Pfad, Befehl, Parameter und Vorschau</translation>
    </message>
    <message>
        <source>Refused: %1</source>
        <translation>Abgelehnt: %1</translation>
    </message>
    <message>
        <source>Applied to %1</source>
        <translation>Auf %1 angewendet</translation>
    </message>
    <message>
        <source>Refused: no such item</source>
        <translation>Abgelehnt: diesen Eintrag gibt es nicht</translation>
    </message>
    <message>
        <source>The name was not changed.</source>
        <translation>Der Name wurde nicht geändert.</translation>
    </message>
    <message>
        <source>Renamed to %1</source>
        <translation>Umbenannt in %1</translation>
    </message>
    <message>
        <source>Showing %1</source>
        <translation>%1 wird gezeigt</translation>
    </message>
    <message>
        <source>Unloaded %1</source>
        <translation>%1 entladen</translation>
    </message>
    <message>
        <source>Cancelled</source>
        <translation>Abgebrochen</translation>
    </message>
    <message>
        <source>The file could not be used.</source>
        <translation>Die Datei konnte nicht verwendet werden.</translation>
    </message>
    <message>
        <source>Loaded %1</source>
        <translation>%1 geladen</translation>
    </message>
    <message>
        <source>Saved %1</source>
        <translation>%1 gespeichert</translation>
    </message>
    <message>
        <source>No place for an assistant</source>
        <translation>Kein Platz für einen Assistenten</translation>
    </message>
    <message>
        <source>Assistant loaded</source>
        <translation>Assistent geladen</translation>
    </message>
    <message>
        <source>Assistant closed</source>
        <translation>Assistent geschlossen</translation>
    </message>
    <message>
        <source>&lt;b&gt;Module assistant&lt;/b&gt;&lt;br&gt;Select a module in the job tree, then click &lt;i&gt;Start Assistant&lt;/i&gt;: the assistant takes the place of the property tree and walks you through the module&apos;s inputs, one at a time, and what its outputs mean.&lt;br&gt;Close it with its own &lt;i&gt;Close&lt;/i&gt; button to edit values again.</source>
        <translation>&lt;b&gt;Modulassistent&lt;/b&gt;&lt;br&gt;Wählen Sie ein Modul im Jobbaum und klicken Sie auf &lt;i&gt;Assistent starten&lt;/i&gt;: Der Assistent tritt an die Stelle des Eigenschaftenbaums und führt Sie Schritt für Schritt durch die Eingänge des Moduls und die Bedeutung seiner Ausgänge.&lt;br&gt;Schließen Sie ihn mit seiner Schaltfläche &lt;i&gt;Schließen&lt;/i&gt;, um wieder Werte zu bearbeiten.</translation>
    </message>
    <message>
        <source>Help for the assistant shown</source>
        <translation>Hilfe zum Assistenten angezeigt</translation>
    </message>
    <message>
        <source>Position allowed</source>
        <translation>Position erlaubt</translation>
    </message>
    <message>
        <source>Position refused: %1</source>
        <translation>Position abgelehnt: %1</translation>
    </message>
    <message>
        <source>Inserted %1</source>
        <translation>%1 eingefügt</translation>
    </message>
    <message>
        <source>Tool box shown</source>
        <translation>Werkzeugkiste gezeigt</translation>
    </message>
    <message>
        <source>Not inserted: %1</source>
        <translation>Nicht eingefügt: %1</translation>
    </message>
    <message>
        <source>New module %1</source>
        <translation>Neues Modul %1</translation>
    </message>
    <message>
        <source>Not copied: %1</source>
        <translation>Nicht kopiert: %1</translation>
    </message>
    <message>
        <source>Copied to %1</source>
        <translation>Kopiert nach %1</translation>
    </message>
    <message>
        <source>Not moved: %1</source>
        <translation>Nicht verschoben: %1</translation>
    </message>
    <message>
        <source>Moved %1</source>
        <translation>%1 verschoben</translation>
    </message>
</context>
<context>
    <name>JobLoader</name>
    <message>
        <source>&quot;%1&quot; must be a text</source>
        <translation>„%1“ muss ein Text sein</translation>
    </message>
    <message>
        <source>&quot;%1&quot; must be true or false</source>
        <translation>„%1“ muss true oder false sein</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a 64-bit integer</source>
        <translation>„%1“ ist keine 64-Bit-Ganzzahl</translation>
    </message>
    <message>
        <source>&quot;%1&quot; must be a number</source>
        <translation>„%1“ muss eine Zahl sein</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is too large for a JSON number, which keeps only 53 bits: write it as a decimal text, such as &quot;9223372036854775807&quot;</source>
        <translation>„%1“ ist zu groß für eine JSON-Zahl, die nur 53 Bit genau ist: schreiben Sie sie als Dezimaltext, etwa „9223372036854775807“</translation>
    </message>
    <message>
        <source>&quot;%1&quot; must be a whole number that fits the type</source>
        <translation>„%1“ muss eine ganze Zahl sein, die in den Typ passt</translation>
    </message>
    <message>
        <source>the job needs a name without &quot;.&quot;</source>
        <translation>der Job braucht einen Namen ohne „.“</translation>
    </message>
    <message>
        <source>&quot;modules&quot; must be a list</source>
        <translation>„modules“ muss eine Liste sein</translation>
    </message>
    <message>
        <source>a module must be an object</source>
        <translation>ein Modul muss ein Objekt sein</translation>
    </message>
    <message>
        <source>two modules are named %1</source>
        <translation>zwei Module heißen %1</translation>
    </message>
    <message>
        <source>every node needs a name without &quot;.&quot;</source>
        <translation>jeder Knoten braucht einen Namen ohne „.“</translation>
    </message>
    <message>
        <source>unknown key &quot;%1&quot;</source>
        <translation>unbekannter Schlüssel „%1“</translation>
    </message>
    <message>
        <source>&quot;io&quot; must be setting, input or output</source>
        <translation>„io“ muss setting, input oder output sein</translation>
    </message>
    <message>
        <source>&quot;nodes&quot; must be a list</source>
        <translation>„nodes“ muss eine Liste sein</translation>
    </message>
    <message>
        <source>a node must be an object</source>
        <translation>ein Knoten muss ein Objekt sein</translation>
    </message>
    <message>
        <source>two nodes are named %1</source>
        <translation>zwei Knoten heißen %1</translation>
    </message>
    <message>
        <source>&quot;outOfRange&quot; must be a count</source>
        <translation>„outOfRange“ muss eine Anzahl sein</translation>
    </message>
    <message>
        <source>a node that is not linkable cannot have a link</source>
        <translation>ein nicht verknüpfbarer Knoten kann keine Verknüpfung haben</translation>
    </message>
    <message>
        <source>&quot;properties&quot; must be an object</source>
        <translation>„properties“ muss ein Objekt sein</translation>
    </message>
    <message>
        <source>an enumeration needs &quot;choices&quot;</source>
        <translation>eine Aufzählung braucht „choices“</translation>
    </message>
    <message>
        <source>every choice must be a text</source>
        <translation>jede Auswahl muss ein Text sein</translation>
    </message>
    <message>
        <source>the value must be one of the choices</source>
        <translation>der Wert muss eine der Auswahlen sein</translation>
    </message>
    <message>
        <source>a node of type &quot;%1&quot; holds no value</source>
        <translation>ein Knoten vom Typ „%1“ hat keinen Wert</translation>
    </message>
    <message>
        <source>&quot;min&quot; lies above &quot;max&quot;</source>
        <translation>„min“ liegt über „max“</translation>
    </message>
    <message>
        <source>&quot;step&quot; must be positive</source>
        <translation>„step“ muss positiv sein</translation>
    </message>
    <message>
        <source>&quot;dynamicMin&quot; and &quot;dynamicMax&quot; go together</source>
        <translation>„dynamicMin“ und „dynamicMax“ gehören zusammen</translation>
    </message>
    <message>
        <source>the local value %1 lies outside &quot;min&quot; %2 .. &quot;max&quot; %3</source>
        <translation>der lokale Wert %1 liegt außerhalb von „min“ %2 .. „max“ %3</translation>
    </message>
    <message>
        <source>&quot;image&quot; needs a width and height from 1 to 4096</source>
        <translation>„image“ braucht Breite und Höhe von 1 bis 4096</translation>
    </message>
    <message>
        <source>&quot;linkMode&quot; must be 0, 1 or 2</source>
        <translation>„linkMode“ muss 0, 1 oder 2 sein</translation>
    </message>
    <message>
        <source>&quot;channels&quot; must be a list</source>
        <translation>„channels“ muss eine Liste sein</translation>
    </message>
    <message>
        <source>a channel needs a name without &quot;.&quot;</source>
        <translation>ein Kanal braucht einen Namen ohne „.“</translation>
    </message>
    <message>
        <source>give either &quot;text&quot; or &quot;base64&quot;</source>
        <translation>entweder „text“ oder „base64“ angeben</translation>
    </message>
    <message>
        <source>&quot;base64&quot; is not valid base64</source>
        <translation>„base64“ ist kein gültiges Base64</translation>
    </message>
    <message>
        <source>the link goes to %1, which the job does not have</source>
        <translation>die Verknüpfung führt zu %1, das es im Job nicht gibt</translation>
    </message>
    <message>
        <source>the node is linked to itself</source>
        <translation>der Knoten ist mit sich selbst verknüpft</translation>
    </message>
    <message>
        <source>a node of type %1 cannot be linked to %2 of type %3</source>
        <translation>ein Knoten vom Typ %1 kann nicht mit %2 vom Typ %3 verknüpft werden</translation>
    </message>
    <message>
        <source>the links go round in a circle through %1</source>
        <translation>die Verknüpfungen bilden einen Kreis über %1</translation>
    </message>
    <message>
        <source>line %1, column %2</source>
        <translation>Zeile %1, Spalte %2</translation>
    </message>
    <message>
        <source>not valid JSON at %1: %2</source>
        <translation>kein gültiges JSON in %1: %2</translation>
    </message>
    <message>
        <source>a job must be a JSON object</source>
        <translation>ein Job muss ein JSON-Objekt sein</translation>
    </message>
</context>
<context>
    <name>ModuleAssistant</name>
    <message>
        <source>Module assistant</source>
        <translation>Modulassistent</translation>
    </message>
    <message>
        <source>Pick a module in the job tree, then set its inputs from top to bottom. Outputs show what the last run produced.</source>
        <translation>Wählen Sie ein Modul im Jobbaum und setzen Sie seine Eingänge von oben nach unten. Ausgänge zeigen, was der letzte Lauf ergab.</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>ModuleToolBox</name>
    <message>
        <source>%1: one per job</source>
        <translation>%1: eines je Job</translation>
    </message>
    <message>
        <source>%1: takes the images</source>
        <translation>%1: nimmt die Bilder auf</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>Job Tree</source>
        <translation>Jobbaum</translation>
    </message>
</context>
<context>
    <name>QtBoolEdit</name>
    <message>
        <source>True</source>
        <translation>Wahr</translation>
    </message>
    <message>
        <source>False</source>
        <translation>Falsch</translation>
    </message>
</context>
<context>
    <name>QtBoolPropertyManager</name>
    <message>
        <source>True</source>
        <translation>Wahr</translation>
    </message>
    <message>
        <source>False</source>
        <translation>Falsch</translation>
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
        <source>#</source>
        <translation>Nr.</translation>
    </message>
    <message>
        <source>Category</source>
        <translation>Kategorie</translation>
    </message>
    <message>
        <source>Id</source>
        <translation>Kennung</translation>
    </message>
    <message>
        <source>Parameters</source>
        <translation>Parameter</translation>
    </message>
    <message>
        <source>Reply</source>
        <translation>Antwort</translation>
    </message>
    <message>
        <source>Host</source>
        <translation>Host</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Leeren</translation>
    </message>
    <message numerus="yes">
        <source>%n byte(s)</source>
        <translation>
            <numerusform>%n Byte</numerusform>
            <numerusform>%n Bytes</numerusform>
        </translation>
    </message>
    <message>
        <source>image %1 x %2</source>
        <translation>Bild %1 x %2</translation>
    </message>
    <message>
        <source>selection changed</source>
        <translation>Auswahl geändert</translation>
    </message>
    <message>
        <source>value edited</source>
        <translation>Wert bearbeitet</translation>
    </message>
    <message>
        <source>may insert here?</source>
        <translation>Einfügen hier erlaubt?</translation>
    </message>
    <message>
        <source>link clicked</source>
        <translation>Verknüpfung angeklickt</translation>
    </message>
    <message>
        <source>editing started</source>
        <translation>Bearbeitung begonnen</translation>
    </message>
    <message>
        <source>editing ended</source>
        <translation>Bearbeitung beendet</translation>
    </message>
    <message>
        <source>editing continues</source>
        <translation>Bearbeitung geht weiter</translation>
    </message>
    <message>
        <source>refresh node</source>
        <translation>Knoten auffrischen</translation>
    </message>
    <message>
        <source>module inserted</source>
        <translation>Modul eingefügt</translation>
    </message>
    <message>
        <source>assistant visibility</source>
        <translation>Assistent zeigen/verbergen</translation>
    </message>
    <message>
        <source>show tool box</source>
        <translation>Werkzeugkasten zeigen</translation>
    </message>
    <message>
        <source>assistant tool tip</source>
        <translation>Hilfe zum Assistenten</translation>
    </message>
    <message>
        <source>insert module</source>
        <translation>Modul einfügen</translation>
    </message>
    <message>
        <source>delete</source>
        <translation>löschen</translation>
    </message>
    <message>
        <source>rename</source>
        <translation>umbenennen</translation>
    </message>
    <message>
        <source>show or hide</source>
        <translation>zeigen oder verbergen</translation>
    </message>
    <message>
        <source>paste module</source>
        <translation>Modul einfügen (Kopie)</translation>
    </message>
    <message>
        <source>move module</source>
        <translation>Modul verschieben</translation>
    </message>
    <message>
        <source>colour marking</source>
        <translation>Farbmarkierung</translation>
    </message>
    <message>
        <source>save to file</source>
        <translation>in Datei speichern</translation>
    </message>
    <message>
        <source>load from file</source>
        <translation>aus Datei laden</translation>
    </message>
    <message>
        <source>unload file</source>
        <translation>Datei entladen</translation>
    </message>
    <message>
        <source>value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>path</source>
        <translation>Pfad</translation>
    </message>
    <message>
        <source>source</source>
        <translation>Quelle</translation>
    </message>
    <message>
        <source>insertion path</source>
        <translation>Einfügepfad</translation>
    </message>
    <message>
        <source>position</source>
        <translation>Lage</translation>
    </message>
    <message>
        <source>none</source>
        <translation>keine</translation>
    </message>
</context>
<context>
    <name>StartAssistantComponent</name>
    <message>
        <source>Start Assistant</source>
        <translation>Assistent starten</translation>
    </message>
    <message>
        <source>What is the assistant?</source>
        <translation>Was ist der Assistent?</translation>
    </message>
</context>
<context>
    <name>Utils::WMessageBox</name>
    <message>
        <source>Warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>Information</source>
        <translation>Information</translation>
    </message>
</context>
<context>
    <name>WelcomeAssistant</name>
    <message>
        <source>Welcome</source>
        <translation>Willkommen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>This job was made from a guided template. The assistant leads you through its modules one by one and asks only for what each of them needs.</source>
        <translation>Dieser Job entstand aus einer geführten Vorlage. Der Assistent führt Sie Modul für Modul hindurch und fragt nur, was jedes davon braucht.</translation>
    </message>
    <message>
        <source>&lt;b&gt;1.&lt;/b&gt; Choose a module in the job tree.&lt;br&gt;&lt;b&gt;2.&lt;/b&gt; Follow the assistant&apos;s steps below the tree.&lt;br&gt;&lt;b&gt;3.&lt;/b&gt; Open the assistant again at any time with &lt;i&gt;Start Assistant&lt;/i&gt;.</source>
        <translation>&lt;b&gt;1.&lt;/b&gt; Wählen Sie ein Modul im Jobbaum.&lt;br&gt;&lt;b&gt;2.&lt;/b&gt; Folgen Sie den Schritten des Assistenten unter dem Baum.&lt;br&gt;&lt;b&gt;3.&lt;/b&gt; Öffnen Sie den Assistenten jederzeit wieder mit &lt;i&gt;Assistent starten&lt;/i&gt;.</translation>
    </message>
    <message>
        <source>Do not show this page again</source>
        <translation>Diese Seite nicht mehr anzeigen</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>WorkbenchWindow</name>
    <message>
        <source>%1 has no widget descriptor list.</source>
        <translation>%1 hat keine Liste von Widget-Beschreibungen.</translation>
    </message>
    <message>
        <source>%1 offers no navigator.</source>
        <translation>%1 bietet keinen Navigator.</translation>
    </message>
    <message>
        <source>The navigator of %1 is not the widget this workbench knows.</source>
        <translation>Der Navigator von %1 ist nicht das Widget, das diese Werkbank kennt.</translation>
    </message>
    <message>
        <source>Job files</source>
        <translation>Jobdateien</translation>
    </message>
    <message>
        <source>The job could not be opened.</source>
        <translation>Der Job konnte nicht geöffnet werden.</translation>
    </message>
    <message>
        <source>Workbench</source>
        <translation>Werkbank</translation>
    </message>
    <message>
        <source>Requests</source>
        <translation>Anfragen</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Open Job...</source>
        <translation>Job &amp;öffnen...</translation>
    </message>
    <message>
        <source>&amp;Sample Job</source>
        <translation>&amp;Beispieljob</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Expert View</source>
        <translation>&amp;Expertenansicht</translation>
    </message>
    <message>
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
        <source>&amp;Project</source>
        <translation>&amp;Projekt</translation>
    </message>
    <message>
        <source>Locked look</source>
        <translation>Gesperrte Ansicht</translation>
    </message>
    <message>
        <source>Released</source>
        <translation>Freigegeben</translation>
    </message>
    <message>
        <source>Editing blocked</source>
        <translation>Bearbeitung gesperrt</translation>
    </message>
    <message>
        <source>Hard lock</source>
        <translation>Harte Sperre</translation>
    </message>
    <message>
        <source>Opening %1...</source>
        <translation>%1 wird geöffnet …</translation>
    </message>
    <message>
        <source>Open Job</source>
        <translation>Job öffnen</translation>
    </message>
    <message>
        <source>the property tree shows no value &quot;%1&quot;</source>
        <translation>der Eigenschaftenbaum zeigt keinen Wert „%1“</translation>
    </message>
    <message>
        <source>the value &quot;%1&quot; has no value dialog</source>
        <translation>der Wert „%1“ hat keinen Wertdialog</translation>
    </message>
    <message>
        <source>the value &quot;%1&quot; has no editor</source>
        <translation>der Wert „%1“ hat keinen Editor</translation>
    </message>
    <message>
        <source>Project mode %1: %2</source>
        <translation>Projektmodus %1: %2</translation>
    </message>
    <message>
        <source>no flags</source>
        <translation>keine Schalter</translation>
    </message>
    <message>
        <source>Camera: offline</source>
        <translation>Kamera: offline</translation>
    </message>
    <message>
        <source>The workbench has no camera. The camera module&apos;s values are shown as the job holds them, and changes that need the camera are refused, as in offline mode.</source>
        <translation>Die Werkbank hat keine Kamera. Die Werte des Kameramoduls werden so gezeigt, wie der Job sie enthält, und Änderungen, die die Kamera brauchen, werden wie im Offline-Modus abgelehnt.</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>Modules</source>
        <translation>Module</translation>
    </message>
</context>
</TS>
