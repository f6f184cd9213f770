<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>GameTexts</name>
    <message>
        <source>Player %1<byte value="xd"/>
Strike %2! You&apos;re Out!</source>
        <translation>Spieler %1<byte value="xd"/>
Strich %2! Sie sind raus!</translation>
    </message>
    <message>
        <source>Player %1<byte value="xd"/>
Strike %2! They&apos;re Out!</source>
        <translation>Spieler %1<byte value="xd"/>
Strich %2! Ausgeschieden!</translation>
    </message>
    <message>
        <source>Player %1<byte value="xd"/>
Strike %2! I&apos;m Out!</source>
        <translation>Spieler %1<byte value="xd"/>
Strich %2! Ich bin raus!</translation>
    </message>
    <message>
        <source>Player %1<byte value="xd"/>
Strike %2!</source>
        <translation>Spieler %1<byte value="xd"/>
Strich %2!</translation>
    </message>
    <message>
        <source>Press &apos;F2&apos; to begin</source>
        <translation>Zum Beginnen &apos;F2&apos; drücken</translation>
    </message>
    <message>
        <source>Shuffling . . .</source>
        <translation>Mischen . . .</translation>
    </message>
    <message>
        <source>%1&apos;s Turn</source>
        <translation>%1 ist am Zug</translation>
    </message>
    <message>
        <source>Your Turn</source>
        <translation>Sie sind am Zug</translation>
    </message>
    <message>
        <source>Player %1&apos;s Turn</source>
        <translation>Spieler %1 ist am Zug</translation>
    </message>
    <message>
        <source>Computer Player %1&apos;s Turn</source>
        <translation>Computerspieler %1 ist am Zug</translation>
    </message>
    <message>
        <source>Strike %1! You&apos;re Out!</source>
        <translation>Strich %1! Sie sind raus!</translation>
    </message>
    <message>
        <source>Strike %1!</source>
        <translation>Strich %1!</translation>
    </message>
    <message>
        <source>Player %1 wins!</source>
        <translation>Spieler %1 gewinnt!</translation>
    </message>
    <message>
        <source>You Win!</source>
        <translation>Sie haben gewonnen!</translation>
    </message>
</context>
<context>
    <name>qx::AboutBox</name>
    <message>
        <source>About QX</source>
        <translation>Über QX</translation>
    </message>
    <message>
        <source>See ORDER.TXT to order more from the Brackenfall Series or other games.</source>
        <translation>In ORDER.TXT steht, wie Sie weitere Spiele der Brackenfall-Reihe und andere Spiele bestellen.</translation>
    </message>
    <message>
        <source>Version 1.1. Cards, pictures and sounds drawn by the program itself.</source>
        <translation>Version 1.1. Karten, Bilder und Klänge zeichnet das Programm selbst.</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;OK</translation>
    </message>
</context>
<context>
    <name>qx::CardBackChooser</name>
    <message>
        <source>Choose a card back</source>
        <translation>Kartenrückseite wählen</translation>
    </message>
</context>
<context>
    <name>qx::HelpWindow</name>
    <message>
        <source>&lt;html&gt;&lt;body&gt;&lt;h2&gt;Help page not found&lt;/h2&gt;&lt;p&gt;The help page &lt;b&gt;%1&lt;/b&gt; is missing, so this topic cannot be shown.&lt;/p&gt;&lt;p&gt;The help pages belong in the &lt;i&gt;help&lt;/i&gt; folder beside the program; building QX again puts them back.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;body&gt;&lt;h2&gt;Hilfeseite nicht gefunden&lt;/h2&gt;&lt;p&gt;Die Hilfeseite &lt;b&gt;%1&lt;/b&gt; fehlt, deshalb kann dieses Thema nicht angezeigt werden.&lt;/p&gt;&lt;p&gt;Die Hilfeseiten gehören in den Ordner &lt;i&gt;help&lt;/i&gt; neben dem Programm; ein erneutes Erstellen von QX legt sie wieder dorthin.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>QX Help</source>
        <translation>QX-Hilfe</translation>
    </message>
    <message>
        <source>&amp;Back</source>
        <translation>&amp;Zurück</translation>
    </message>
    <message>
        <source>&amp;Forward</source>
        <translation>&amp;Vor</translation>
    </message>
    <message>
        <source>&amp;Contents</source>
        <translation>&amp;Inhalt</translation>
    </message>
</context>
<context>
    <name>qx::MainWindow</name>
    <message>
        <source>Are you sure you want to end this network game?</source>
        <translation>Möchten Sie dieses Netzwerkspiel wirklich beenden?</translation>
    </message>
    <message>
        <source>Are you sure you want to quit?</source>
        <translation>Möchten Sie das Programm wirklich beenden?</translation>
    </message>
</context>
<context>
    <name>qx::Menus</name>
    <message>
        <source>&amp;Game</source>
        <translation>&amp;Spiel</translation>
    </message>
    <message>
        <source>&amp;New</source>
        <translation>&amp;Neu</translation>
    </message>
    <message>
        <source>&amp;Take Over</source>
        <translation>&amp;Übernehmen</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;Options</source>
        <translation>&amp;Optionen</translation>
    </message>
    <message>
        <source>Sou&amp;nd</source>
        <translation>&amp;Ton</translation>
    </message>
    <message>
        <source>&amp;Tally Score</source>
        <translation>P&amp;unktestand führen</translation>
    </message>
    <message>
        <source>S&amp;how Computer Moves</source>
        <translation>&amp;Computerzüge zeigen</translation>
    </message>
    <message>
        <source>Background &amp;Color</source>
        <translation>&amp;Hintergrundfarbe</translation>
    </message>
    <message>
        <source>&amp;Gray</source>
        <translation>&amp;Grau</translation>
    </message>
    <message>
        <source>&amp;Match Windows</source>
        <translation>&amp;Systemfarbe</translation>
    </message>
    <message>
        <source>&amp;Custom...</source>
        <translation>&amp;Eigene...</translation>
    </message>
    <message>
        <source>&amp;Animation</source>
        <translation>&amp;Animation</translation>
    </message>
    <message>
        <source>&amp;None</source>
        <translation>&amp;Keine</translation>
    </message>
    <message>
        <source>&amp;Fast</source>
        <translation>&amp;Schnell</translation>
    </message>
    <message>
        <source>&amp;Medium</source>
        <comment>animation speed</comment>
        <translation>&amp;Mittel</translation>
    </message>
    <message>
        <source>&amp;Slow</source>
        <translation>&amp;Langsam</translation>
    </message>
    <message>
        <source>&amp;Pause Game</source>
        <translation>&amp;Pausen</translation>
    </message>
    <message>
        <source>Before &amp;Humans</source>
        <translation>Vor &amp;Menschen</translation>
    </message>
    <message>
        <source>Before &amp;Computers</source>
        <translation>Vor &amp;Computern</translation>
    </message>
    <message>
        <source>After &amp;Strikes</source>
        <translation>Nach &amp;Strichen</translation>
    </message>
    <message>
        <source>Number Of &amp;Decks</source>
        <translation>Anzahl der &amp;Kartenspiele</translation>
    </message>
    <message>
        <source>&amp;Restore Options</source>
        <translation>Optionen &amp;wiederherstellen</translation>
    </message>
    <message>
        <source>Restore Default Options</source>
        <translation>Standardoptionen wiederherstellen</translation>
    </message>
    <message>
        <source>&amp;Save Options</source>
        <translation>Optionen &amp;speichern</translation>
    </message>
    <message>
        <source>&amp;Cards</source>
        <translation>&amp;Karten</translation>
    </message>
    <message>
        <source>&amp;Small</source>
        <translation>&amp;Klein</translation>
    </message>
    <message>
        <source>&amp;Medium</source>
        <comment>card size</comment>
        <translation>&amp;Mittel</translation>
    </message>
    <message>
        <source>&amp;Large</source>
        <translation>&amp;Groß</translation>
    </message>
    <message>
        <source>&amp;Card Back</source>
        <translation>Karten&amp;rückseite</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;Contents</source>
        <translation>&amp;Inhalt</translation>
    </message>
    <message>
        <source>&amp;Rules</source>
        <translation>&amp;Regeln</translation>
    </message>
    <message>
        <source>&amp;Strategy</source>
        <translation>&amp;Strategie</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>Ü&amp;ber QX</translation>
    </message>
</context>
<context>
    <name>qx::NetHost</name>
    <message>
        <source>Cannot listen on port %1: %2</source>
        <translation>Port %1 kann nicht geöffnet werden: %2</translation>
    </message>
</context>
<context>
    <name>qx::NetworkSession</name>
    <message>
        <source>Player %1</source>
        <translation>Spieler %1</translation>
    </message>
    <message>
        <source>%1 left the game and will be run by the computer.</source>
        <translation>%1 hat das Spiel verlassen; der Computer spielt diesen Platz weiter.</translation>
    </message>
    <message>
        <source>The connection to the host has dropped.</source>
        <translation>Die Verbindung zum Gastgeber ist abgebrochen.</translation>
    </message>
</context>
<context>
    <name>qx::NewGameDialog</name>
    <message>
        <source>Games on the LAN:</source>
        <translation>Spiele im lokalen Netz:</translation>
    </message>
    <message>
        <source>Computer</source>
        <translation>Computer</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>Players</source>
        <translation>Spieler</translation>
    </message>
    <message>
        <source>Free Seats</source>
        <translation>Freie Plätze</translation>
    </message>
    <message>
        <source>Version</source>
        <translation>Version</translation>
    </message>
    <message>
        <source>%1 (other version)</source>
        <translation>%1 (andere Version)</translation>
    </message>
    <message>
        <source>This host runs %1 %2 and cannot be joined from %1 %3.</source>
        <translation>Dieser Gastgeber verwendet %1 %2; von %1 %3 aus ist kein Beitritt möglich.</translation>
    </message>
    <message>
        <source>Please choose a human player to be added to the network game.</source>
        <translation>Bitte wählen Sie einen menschlichen Spieler, der dem Netzwerkspiel hinzugefügt werden soll.</translation>
    </message>
    <message>
        <source>Please choose only one human player to be added to the network game.</source>
        <translation>Bitte wählen Sie nur einen menschlichen Spieler, der dem Netzwerkspiel hinzugefügt werden soll.</translation>
    </message>
    <message>
        <source>Please enter the host&apos;s computer name.</source>
        <translation>Bitte geben Sie den Computernamen des Gastgebers ein.</translation>
    </message>
    <message>
        <source>Connection Established</source>
        <translation>Verbindung hergestellt</translation>
    </message>
    <message>
        <source>Connected</source>
        <translation>Verbunden</translation>
    </message>
    <message>
        <source>Choice Accepted, Waiting to Start</source>
        <translation>Wahl angenommen, warte auf den Start</translation>
    </message>
    <message>
        <source>Starting Game</source>
        <translation>Spiel beginnt</translation>
    </message>
    <message>
        <source>The game has started without you.</source>
        <translation>Das Spiel hat ohne Sie begonnen.</translation>
    </message>
    <message>
        <source>You should be running %1.</source>
        <translation>Sie sollten %1 verwenden.</translation>
    </message>
    <message>
        <source>You should be running %1 %2.</source>
        <translation>Sie sollten %1 %2 verwenden.</translation>
    </message>
    <message>
        <source>You were kicked out of the game.</source>
        <translation>Sie wurden aus dem Spiel entfernt.</translation>
    </message>
    <message>
        <source>Are you sure you want to remove %1 from the game?</source>
        <translation>Möchten Sie %1 wirklich aus dem Spiel entfernen?</translation>
    </message>
    <message>
        <source>This computer cannot host a network game.
%1.
Another program, or another copy of QX, may be using TCP port %2.</source>
        <translation>Dieser Computer kann kein Netzwerkspiel ausrichten.
%1.
Möglicherweise belegt ein anderes Programm oder eine andere QX-Kopie den TCP-Port %2.</translation>
    </message>
    <message>
        <source>Network Connections: %1</source>
        <translation>Netzwerkverbindungen: %1</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;OK</translation>
    </message>
    <message>
        <source>&amp;Select</source>
        <translation>&amp;Auswählen</translation>
    </message>
    <message>
        <source>Not Connected</source>
        <translation>Nicht verbunden</translation>
    </message>
    <message>
        <source>Connecting to %1...</source>
        <translation>Verbinde mit %1...</translation>
    </message>
    <message>
        <source>New Game</source>
        <translation>Neues Spiel</translation>
    </message>
    <message>
        <source>Host</source>
        <translation>Gastgeber</translation>
    </message>
    <message>
        <source>Guest</source>
        <translation>Gast</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
    <message>
        <source>Number of Players</source>
        <translation>Anzahl der Spieler</translation>
    </message>
    <message>
        <source>With 9 or 10 players, choose 2 or more decks (Options &gt; Number Of Decks): with one deck a round may never end.</source>
        <translation>Wählen Sie bei 9 oder 10 Spielern 2 oder mehr Kartenspiele (Optionen &gt; Anzahl der Kartenspiele): Mit nur einem Kartenspiel endet eine Runde womöglich nie.</translation>
    </message>
    <message>
        <source>Human Players</source>
        <translation>Menschliche Spieler</translation>
    </message>
    <message>
        <source>Network Play</source>
        <translation>Netzwerkspiel</translation>
    </message>
    <message>
        <source>Host&apos;s Name/IP:</source>
        <translation>Name/IP des Gastgebers:</translation>
    </message>
</context>
<context>
    <name>qx::OptionsCommands</name>
    <message>
        <source>You will have to begin a new game after this change. Continue?</source>
        <translation>Nach dieser Änderung müssen Sie ein neues Spiel beginnen. Fortfahren?</translation>
    </message>
    <message>
        <source>Background Color</source>
        <translation>Hintergrundfarbe</translation>
    </message>
</context>
<context>
    <name>qx::OptionsStore</name>
    <message>
        <source>The setting &quot;%1&quot; in section &quot;%2&quot; has the value &quot;%3&quot;, which QX cannot use. The current value is kept.</source>
        <translation>Die Einstellung „%1“ im Abschnitt „%2“ hat den Wert „%3“, den QX nicht verwenden kann. Der bisherige Wert bleibt erhalten.</translation>
    </message>
    <message>
        <source>The setting %1 is missing from section &quot;%2&quot;. Its current value is kept.</source>
        <translation>Die Einstellung %1 fehlt im Abschnitt „%2“. Ihr bisheriger Wert bleibt erhalten.</translation>
    </message>
    <message>
        <source>The settings %1 are missing from section &quot;%2&quot;. Their current values are kept.</source>
        <translation>Die Einstellungen %1 fehlen im Abschnitt „%2“. Ihre bisherigen Werte bleiben erhalten.</translation>
    </message>
    <message>
        <source>QX cannot read its settings file %1: %2. It starts with the built-in options.</source>
        <translation>QX kann seine Einstellungsdatei %1 nicht lesen: %2. Es startet mit den eingebauten Optionen.</translation>
    </message>
    <message>
        <source>QX cannot write its settings file %1: %2. Options can still be changed, but Save Options cannot keep them.</source>
        <translation>QX kann seine Einstellungsdatei %1 nicht schreiben: %2. Die Optionen lassen sich weiter ändern, aber „Optionen speichern“ kann sie nicht aufbewahren.</translation>
    </message>
    <message>
        <source>QX cannot read its settings file %1: %2. The options in use are kept.</source>
        <translation>QX kann seine Einstellungsdatei %1 nicht lesen: %2. Die aktuellen Optionen bleiben erhalten.</translation>
    </message>
    <message>
        <source>QX cannot save its options to %1: %2. The options in use are kept, and the file is left as it was.</source>
        <translation>QX kann seine Optionen nicht in %1 speichern: %2. Die aktuellen Optionen bleiben erhalten, und die Datei bleibt unverändert.</translation>
    </message>
</context>
<context>
    <name>qx::Reg</name>
    <message>
        <source>It is a folder, not a file</source>
        <translation>Das ist ein Ordner, keine Datei</translation>
    </message>
    <message>
        <source>It cannot be read</source>
        <translation>Sie kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>The folder %1 cannot be made</source>
        <translation>Der Ordner %1 kann nicht angelegt werden</translation>
    </message>
    <message>
        <source>It cannot be written</source>
        <translation>Sie kann nicht geschrieben werden</translation>
    </message>
</context>
<context>
    <name>qx::SeatName</name>
    <message>
        <source>Computer %1</source>
        <translation>Computer %1</translation>
    </message>
    <message>
        <source>Player %1</source>
        <translation>Spieler %1</translation>
    </message>
</context>
<context>
    <name>qx::SplashWindow</name>
    <message>
        <source>Loading . . .</source>
        <translation>Wird geladen . . .</translation>
    </message>
    <message>
        <source>Keep the total under 100.</source>
        <translation>Halten Sie die Summe unter 100.</translation>
    </message>
</context>
<context>
    <name>qx::StrikesWindow</name>
    <message>
        <source>Strikes</source>
        <translation>Striche</translation>
    </message>
</context>
<context>
    <name>qx::TablePainter</name>
    <message>
        <source>1 card left</source>
        <translation>1 Karte übrig</translation>
    </message>
    <message>
        <source>%1 cards left</source>
        <translation>%1 Karten übrig</translation>
    </message>
    <message>
        <source>OUT</source>
        <translation>AUS</translation>
    </message>
    <message>
        <source>Press F2 to begin</source>
        <translation>Zum Beginnen F2 drücken</translation>
    </message>
    <message>
        <source>of %1</source>
        <translation>von %1</translation>
    </message>
    <message>
        <source>Games won</source>
        <translation>Gewonnene Spiele</translation>
    </message>
    <message>
        <source>No winner yet</source>
        <translation>Noch kein Sieger</translation>
    </message>
    <message>
        <source>TOTAL</source>
        <translation>SUMME</translation>
    </message>
    <message>
        <source>of 99</source>
        <translation>von 99</translation>
    </message>
</context>
<context>
    <name>qx::TableView</name>
    <message>
        <source>&amp;Resume</source>
        <translation>&amp;Weiter</translation>
    </message>
</context>
</TS>
