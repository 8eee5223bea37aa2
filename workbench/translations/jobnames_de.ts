<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
  <context>
    <name>IData</name>
    <message>
      <source>BottleInspection</source>
      <translation>Flaschenprüfung</translation>
    </message>
    <message>
      <source>Camera</source>
      <translation>Kamera</translation>
    </message>
    <message>
      <source>Exposure</source>
      <translation>Belichtungszeit [µs]</translation>
    </message>
    <message>
      <source>Gain</source>
      <translation>Verstärkung [dB]</translation>
    </message>
    <message>
      <source>FrameCounter</source>
      <translation>Aufgenommene Bilder</translation>
    </message>
    <message>
      <source>TriggerMode</source>
      <translation>Auslösemodus</translation>
    </message>
    <message>
      <source>Flip</source>
      <translation>Bild spiegeln</translation>
    </message>
    <message>
      <source>Image</source>
      <translation>Bild</translation>
    </message>
    <message>
      <source>DeviceId</source>
      <translation>Gerätekennung</translation>
    </message>
    <message>
      <source>Temperature</source>
      <translation>Sensortemperatur [°C]</translation>
    </message>
    <message>
      <source>State</source>
      <translation>Modulzustand</translation>
    </message>
    <message>
      <source>Module State</source>
      <translation>Modulzustand</translation>
    </message>
    <message>
      <source>OK</source>
      <translation>OK</translation>
    </message>
    <message>
      <source>Not Executed</source>
      <translation>Nicht ausgeführt</translation>
    </message>
    <message>
      <source>Unknown State</source>
      <translation>Unbekannter Zustand</translation>
    </message>
    <message>
      <source>ImageFilter</source>
      <translation>Bildfilter</translation>
    </message>
    <message>
      <source>InputImage</source>
      <translation>Eingangsbild</translation>
    </message>
    <message>
      <source>FilterType</source>
      <translation>Filtertyp</translation>
    </message>
    <message>
      <source>Kernel</source>
      <translation>Filterkern</translation>
    </message>
    <message>
      <source>Iterations</source>
      <translation>Durchläufe</translation>
    </message>
    <message>
      <source>FilteredImage</source>
      <translation>Gefiltertes Bild</translation>
    </message>
    <message>
      <source>Locator</source>
      <translation>Lokalisierer</translation>
    </message>
    <message>
      <source>SearchImage</source>
      <translation>Suchbild</translation>
    </message>
    <message>
      <source>Model</source>
      <translation>Modellumriss</translation>
    </message>
    <message>
      <source>MinScore</source>
      <translation>Mindestbewertung</translation>
    </message>
    <message>
      <source>Score</source>
      <translation>Bewertung</translation>
    </message>
    <message>
      <source>Position</source>
      <translation>Position</translation>
    </message>
    <message>
      <source>Mask</source>
      <translation>Suchmaske</translation>
    </message>
    <message>
      <source>Found</source>
      <translation>Flasche gefunden</translation>
    </message>
    <message>
      <source>OCR</source>
      <translation>Texterkennung</translation>
    </message>
    <message>
      <source>Font</source>
      <translation>Schrift</translation>
    </message>
    <message>
      <source>Pattern</source>
      <translation>Muster</translation>
    </message>
    <message>
      <source>Fielding</source>
      <translation>Feldaufteilung</translation>
    </message>
    <message>
      <source>Set</source>
      <translation>Satz</translation>
    </message>
    <message>
      <source>CharFilter</source>
      <translation>Zeichenfilter</translation>
    </message>
    <message>
      <source>Script</source>
      <translation>Leseskript</translation>
    </message>
    <message>
      <source>ReadText</source>
      <translation>Gelesener Text</translation>
    </message>
    <message>
      <source>Confidence</source>
      <translation>Konfidenz [%]</translation>
    </message>
    <message>
      <source>Calibration</source>
      <translation>Kalibrierdaten</translation>
    </message>
    <message>
      <source>Measurement</source>
      <translation>Messung</translation>
    </message>
    <message>
      <source>Reference</source>
      <translation>Referenzpunkt</translation>
    </message>
    <message>
      <source>Tolerance</source>
      <translation>Toleranz [mm]</translation>
    </message>
    <message>
      <source>Diameter</source>
      <translation>Durchmesser [mm]</translation>
    </message>
    <message>
      <source>Offset</source>
      <translation>Versatz [px]</translation>
    </message>
    <message>
      <source>Debug</source>
      <translation>Debug-Ausgabe</translation>
    </message>
    <message>
      <source>Counter</source>
      <translation>Chargenzähler</translation>
    </message>
    <message>
      <source>Plan</source>
      <translation>Prüfplan</translation>
    </message>
    <message>
      <source>Red</source>
      <translation>Rot</translation>
    </message>
    <message>
      <source>Green</source>
      <translation>Grün</translation>
    </message>
    <message>
      <source>Blue</source>
      <translation>Blau</translation>
    </message>
    <message>
      <source>Input</source>
      <translation>Eingang</translation>
    </message>
    <message>
      <source>Output</source>
      <translation>Ausgang</translation>
    </message>
    <message>
      <source>Bottle found</source>
      <translation>Flasche gefunden</translation>
    </message>
    <message>
      <source>Error</source>
      <translation>Fehler</translation>
    </message>
    <message>
      <source>Not Available</source>
      <translation>Nicht verfügbar</translation>
    </message>
    <message>
      <source>OcrConfidence</source>
      <translation>OCR-Konfidenz [%]</translation>
    </message>
    <message>
      <source>Exposure Time [us]</source>
      <translation>Belichtungszeit [µs]</translation>
    </message>
    <message>
      <source>Gain [dB]</source>
      <translation>Verstärkung [dB]</translation>
    </message>
    <message>
      <source>Frames Acquired</source>
      <translation>Aufgenommene Bilder</translation>
    </message>
    <message>
      <source>Trigger Mode</source>
      <translation>Auslösemodus</translation>
    </message>
    <message>
      <source>Flip Image</source>
      <translation>Bild spiegeln</translation>
    </message>
    <message>
      <source>Device ID</source>
      <translation>Gerätekennung</translation>
    </message>
    <message>
      <source>Sensor Temperature [°C]</source>
      <translation>Sensortemperatur [°C]</translation>
    </message>
    <message>
      <source>Image Filter</source>
      <translation>Bildfilter</translation>
    </message>
    <message>
      <source>Input Image</source>
      <translation>Eingangsbild</translation>
    </message>
    <message>
      <source>Filter Type</source>
      <translation>Filtertyp</translation>
    </message>
    <message>
      <source>Filtered Image</source>
      <translation>Gefiltertes Bild</translation>
    </message>
    <message>
      <source>Search Image</source>
      <translation>Suchbild</translation>
    </message>
    <message>
      <source>Model Outline</source>
      <translation>Modellumriss</translation>
    </message>
    <message>
      <source>Minimum Score</source>
      <translation>Mindestbewertung</translation>
    </message>
    <message>
      <source>Search Mask</source>
      <translation>Suchmaske</translation>
    </message>
    <message>
      <source>Bottle Found</source>
      <translation>Flasche gefunden</translation>
    </message>
    <message>
      <source>Character Filter</source>
      <translation>Zeichenfilter</translation>
    </message>
    <message>
      <source>Reading Script</source>
      <translation>Leseskript</translation>
    </message>
    <message>
      <source>Read Text</source>
      <translation>Gelesener Text</translation>
    </message>
    <message>
      <source>Confidence [%]</source>
      <translation>Konfidenz [%]</translation>
    </message>
    <message>
      <source>Calibration Data</source>
      <translation>Kalibrierdaten</translation>
    </message>
    <message>
      <source>Reference Point</source>
      <translation>Referenzpunkt</translation>
    </message>
    <message>
      <source>Diameter [mm]</source>
      <translation>Durchmesser [mm]</translation>
    </message>
    <message>
      <source>Tolerance [mm]</source>
      <translation>Toleranz [mm]</translation>
    </message>
    <message>
      <source>OCR Confidence [%]</source>
      <translation>OCR-Konfidenz [%]</translation>
    </message>
    <message>
      <source>Offset [px]</source>
      <translation>Versatz [px]</translation>
    </message>
    <message>
      <source>Debug Output</source>
      <translation>Debug-Ausgabe</translation>
    </message>
    <message>
      <source>Batch Counter</source>
      <translation>Chargenzähler</translation>
    </message>
    <message>
      <source>Inspection Plan</source>
      <translation>Prüfplan</translation>
    </message>
    <message>
      <source>GapMeasurement</source>
      <translation>Spaltmessung</translation>
    </message>
    <message>
      <source>LineScan</source>
      <translation>Zeilenkamera</translation>
    </message>
    <message>
      <source>LineRate</source>
      <translation>Zeilenrate</translation>
    </message>
    <message>
      <source>Profile</source>
      <translation>Profil</translation>
    </message>
    <message>
      <source>Gap</source>
      <translation>Spalt</translation>
    </message>
    <message>
      <source>Width</source>
      <translation>Breite</translation>
    </message>
    <message>
      <source>Limit</source>
      <translation>Grenzwert</translation>
    </message>
    <message>
      <source>Edge</source>
      <translation>Kante</translation>
    </message>
    <message>
      <source>LabelCheck</source>
      <translation>Etikettenprüfung</translation>
    </message>
    <message>
      <source>LabelReader</source>
      <translation>Etikettenleser</translation>
    </message>
    <message>
      <source>Language</source>
      <translation>Sprache</translation>
    </message>
    <message>
      <source>Present</source>
      <translation>Vorhanden</translation>
    </message>
    <message>
      <source>SourceImage</source>
      <translation>Quellbild</translation>
    </message>
    <message>
      <source>Text</source>
      <translation>Text</translation>
    </message>
    <message>
      <source>Result</source>
      <translation>Ergebnis</translation>
    </message>
    <message>
      <source>Pass</source>
      <translation>Gut</translation>
    </message>
    <message>
      <source>Rejected</source>
      <translation>Ausgeworfen</translation>
    </message>
    <message>
      <source>Part Passed</source>
      <translation>Teil in Ordnung</translation>
    </message>
    <message>
      <source>Parts Rejected</source>
      <translation>Ausgeworfene Teile</translation>
    </message>
    <message>
      <source>BlobFinder</source>
      <translation>Blobsuche</translation>
    </message>
    <message>
      <source>EdgeMeasure</source>
      <translation>Kantenmessung</translation>
    </message>
    <message>
      <source>OcrReader</source>
      <translation>Klarschriftleser</translation>
    </message>
    <message>
      <source>Threshold</source>
      <translation>Schwelle</translation>
    </message>
    <message>
      <source>MinArea</source>
      <translation>Mindestfläche</translation>
    </message>
    <message>
      <source>Minimum Area [px]</source>
      <translation>Mindestfläche [px]</translation>
    </message>
    <message>
      <source>Count</source>
      <translation>Anzahl</translation>
    </message>
    <message>
      <source>Blob Count</source>
      <translation>Anzahl Blobs</translation>
    </message>
    <message>
      <source>Contrast</source>
      <translation>Kontrast</translation>
    </message>
    <message>
      <source>Distance</source>
      <translation>Abstand</translation>
    </message>
    <message>
      <source>Distance [mm]</source>
      <translation>Abstand [mm]</translation>
    </message>
    <message>
      <source>Expected</source>
      <translation>Erwartet</translation>
    </message>
    <message>
      <source>Expected Text</source>
      <translation>Erwarteter Text</translation>
    </message>
    <message>
      <source>Strength</source>
      <translation>Stärke</translation>
    </message>
    <message>
      <source>OutputImage</source>
      <translation>Ausgabebild</translation>
    </message>
    <message>
      <source>Output Image</source>
      <translation>Ausgabebild</translation>
    </message>
  </context>
</TS>
