<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr_FR">
<context>
    <name>GameTexts</name>
    <message>
        <source>Player %1<byte value="xd"/>
Strike %2! You&apos;re Out!</source>
        <translation>Joueur %1<byte value="xd"/>
Pénalité %2&#xa0;! Vous êtes éliminé&#xa0;!</translation>
    </message>
    <message>
        <source>Player %1<byte value="xd"/>
Strike %2! They&apos;re Out!</source>
        <translation>Joueur %1<byte value="xd"/>
Pénalité %2&#xa0;! Éliminé&#xa0;!</translation>
    </message>
    <message>
        <source>Player %1<byte value="xd"/>
Strike %2! I&apos;m Out!</source>
        <translation>Joueur %1<byte value="xd"/>
Pénalité %2&#xa0;! Je suis éliminé&#xa0;!</translation>
    </message>
    <message>
        <source>Player %1<byte value="xd"/>
Strike %2!</source>
        <translation>Joueur %1<byte value="xd"/>
Pénalité %2&#xa0;!</translation>
    </message>
    <message>
        <source>Press &apos;F2&apos; to begin</source>
        <translation>Appuyez sur &apos;F2&apos; pour commencer</translation>
    </message>
    <message>
        <source>Shuffling . . .</source>
        <translation>Mélange . . .</translation>
    </message>
    <message>
        <source>%1&apos;s Turn</source>
        <translation>Au tour de %1</translation>
    </message>
    <message>
        <source>Your Turn</source>
        <translation>À vous de jouer</translation>
    </message>
    <message>
        <source>Player %1&apos;s Turn</source>
        <translation>Au tour du joueur %1</translation>
    </message>
    <message>
        <source>Computer Player %1&apos;s Turn</source>
        <translation>Au tour de l&apos;ordinateur %1</translation>
    </message>
    <message>
        <source>Strike %1! You&apos;re Out!</source>
        <translation>Pénalité %1&#xa0;! Vous êtes éliminé&#xa0;!</translation>
    </message>
    <message>
        <source>Strike %1!</source>
        <translation>Pénalité %1&#xa0;!</translation>
    </message>
    <message>
        <source>Player %1 wins!</source>
        <translation>Le joueur %1 gagne&#xa0;!</translation>
    </message>
    <message>
        <source>You Win!</source>
        <translation>Vous avez gagné&#xa0;!</translation>
    </message>
</context>
<context>
    <name>qx::AboutBox</name>
    <message>
        <source>About QX</source>
        <translation>À propos de QX</translation>
    </message>
    <message>
        <source>See ORDER.TXT to order more from the Brackenfall Series or other games.</source>
        <translation>Voir ORDER.TXT pour commander d&apos;autres jeux de la série Brackenfall ou d&apos;autres jeux.</translation>
    </message>
    <message>
        <source>Version 1.1. Cards, pictures and sounds drawn by the program itself.</source>
        <translation>Version 1.1. Cartes, images et sons dessinés par le programme lui-même.</translation>
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
        <translation>Choisir le dos des cartes</translation>
    </message>
</context>
<context>
    <name>qx::HelpWindow</name>
    <message>
        <source>&lt;html&gt;&lt;body&gt;&lt;h2&gt;Help page not found&lt;/h2&gt;&lt;p&gt;The help page &lt;b&gt;%1&lt;/b&gt; is missing, so this topic cannot be shown.&lt;/p&gt;&lt;p&gt;The help pages belong in the &lt;i&gt;help&lt;/i&gt; folder beside the program; building QX again puts them back.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;body&gt;&lt;h2&gt;Page d&apos;aide introuvable&lt;/h2&gt;&lt;p&gt;La page d&apos;aide &lt;b&gt;%1&lt;/b&gt; est manquante, cette rubrique ne peut donc pas être affichée.&lt;/p&gt;&lt;p&gt;Les pages d&apos;aide se trouvent dans le dossier &lt;i&gt;help&lt;/i&gt; à côté du programme ; reconstruire QX les remet en place.&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>QX Help</source>
        <translation>Aide de QX</translation>
    </message>
    <message>
        <source>&amp;Back</source>
        <translation>&amp;Précédent</translation>
    </message>
    <message>
        <source>&amp;Forward</source>
        <translation>&amp;Suivant</translation>
    </message>
    <message>
        <source>&amp;Contents</source>
        <translation>S&amp;ommaire</translation>
    </message>
</context>
<context>
    <name>qx::MainWindow</name>
    <message>
        <source>Are you sure you want to end this network game?</source>
        <translation>Voulez-vous vraiment mettre fin à cette partie en réseau&#xa0;?</translation>
    </message>
    <message>
        <source>Are you sure you want to quit?</source>
        <translation>Voulez-vous vraiment quitter&#xa0;?</translation>
    </message>
</context>
<context>
    <name>qx::Menus</name>
    <message>
        <source>&amp;Game</source>
        <translation>&amp;Partie</translation>
    </message>
    <message>
        <source>&amp;New</source>
        <translation>&amp;Nouvelle</translation>
    </message>
    <message>
        <source>&amp;Take Over</source>
        <translation>Confier à l&apos;&amp;ordinateur</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>&amp;Quitter</translation>
    </message>
    <message>
        <source>&amp;Options</source>
        <translation>&amp;Options</translation>
    </message>
    <message>
        <source>Sou&amp;nd</source>
        <translation>&amp;Son</translation>
    </message>
    <message>
        <source>&amp;Tally Score</source>
        <translation>&amp;Compter les points</translation>
    </message>
    <message>
        <source>S&amp;how Computer Moves</source>
        <translation>&amp;Montrer les coups de l&apos;ordinateur</translation>
    </message>
    <message>
        <source>Background &amp;Color</source>
        <translation>Couleur du &amp;fond</translation>
    </message>
    <message>
        <source>&amp;Gray</source>
        <translation>&amp;Gris</translation>
    </message>
    <message>
        <source>&amp;Match Windows</source>
        <translation>Couleur du &amp;système</translation>
    </message>
    <message>
        <source>&amp;Custom...</source>
        <translation>&amp;Personnalisée...</translation>
    </message>
    <message>
        <source>&amp;Animation</source>
        <translation>&amp;Animation</translation>
    </message>
    <message>
        <source>&amp;None</source>
        <translation>&amp;Aucune</translation>
    </message>
    <message>
        <source>&amp;Fast</source>
        <translation>&amp;Rapide</translation>
    </message>
    <message>
        <source>&amp;Medium</source>
        <comment>animation speed</comment>
        <translation>&amp;Moyenne</translation>
    </message>
    <message>
        <source>&amp;Slow</source>
        <translation>&amp;Lente</translation>
    </message>
    <message>
        <source>&amp;Pause Game</source>
        <translation>Mettre en &amp;pause</translation>
    </message>
    <message>
        <source>Before &amp;Humans</source>
        <translation>Avant les &amp;humains</translation>
    </message>
    <message>
        <source>Before &amp;Computers</source>
        <translation>Avant l&apos;&amp;ordinateur</translation>
    </message>
    <message>
        <source>After &amp;Strikes</source>
        <translation>Après les &amp;pénalités</translation>
    </message>
    <message>
        <source>Number Of &amp;Decks</source>
        <translation>Nombre de &amp;jeux</translation>
    </message>
    <message>
        <source>&amp;Restore Options</source>
        <translation>&amp;Rétablir les options</translation>
    </message>
    <message>
        <source>Restore Default Options</source>
        <translation>Rétablir les options par défaut</translation>
    </message>
    <message>
        <source>&amp;Save Options</source>
        <translation>&amp;Enregistrer les options</translation>
    </message>
    <message>
        <source>&amp;Cards</source>
        <translation>&amp;Cartes</translation>
    </message>
    <message>
        <source>&amp;Small</source>
        <translation>&amp;Petites</translation>
    </message>
    <message>
        <source>&amp;Medium</source>
        <comment>card size</comment>
        <translation>&amp;Moyennes</translation>
    </message>
    <message>
        <source>&amp;Large</source>
        <translation>&amp;Grandes</translation>
    </message>
    <message>
        <source>&amp;Card Back</source>
        <translation>&amp;Dos des cartes</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Aide</translation>
    </message>
    <message>
        <source>&amp;Contents</source>
        <translation>&amp;Sommaire</translation>
    </message>
    <message>
        <source>&amp;Rules</source>
        <translation>&amp;Règles</translation>
    </message>
    <message>
        <source>&amp;Strategy</source>
        <translation>S&amp;tratégie</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>À &amp;propos</translation>
    </message>
</context>
<context>
    <name>qx::NetHost</name>
    <message>
        <source>Cannot listen on port %1: %2</source>
        <translation>Impossible d&apos;écouter sur le port %1&#xa0;: %2</translation>
    </message>
</context>
<context>
    <name>qx::NetworkSession</name>
    <message>
        <source>Player %1</source>
        <translation>Joueur %1</translation>
    </message>
    <message>
        <source>%1 left the game and will be run by the computer.</source>
        <translation>%1 a quitté la partie ; l&apos;ordinateur prend sa place.</translation>
    </message>
    <message>
        <source>The connection to the host has dropped.</source>
        <translation>La connexion avec l&apos;hôte a été perdue.</translation>
    </message>
</context>
<context>
    <name>qx::NewGameDialog</name>
    <message>
        <source>Games on the LAN:</source>
        <translation>Parties sur le réseau local&#xa0;:</translation>
    </message>
    <message>
        <source>Computer</source>
        <translation>Ordinateur</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>Players</source>
        <translation>Joueurs</translation>
    </message>
    <message>
        <source>Free Seats</source>
        <translation>Places libres</translation>
    </message>
    <message>
        <source>Version</source>
        <translation>Version</translation>
    </message>
    <message>
        <source>%1 (other version)</source>
        <translation>%1 (autre version)</translation>
    </message>
    <message>
        <source>This host runs %1 %2 and cannot be joined from %1 %3.</source>
        <translation>Cet hôte utilise %1 %2 et ne peut pas être rejoint depuis %1 %3.</translation>
    </message>
    <message>
        <source>Please choose a human player to be added to the network game.</source>
        <translation>Veuillez choisir un joueur humain à ajouter à la partie en réseau.</translation>
    </message>
    <message>
        <source>Please choose only one human player to be added to the network game.</source>
        <translation>Veuillez ne choisir qu&apos;un seul joueur humain à ajouter à la partie en réseau.</translation>
    </message>
    <message>
        <source>Please enter the host&apos;s computer name.</source>
        <translation>Veuillez saisir le nom de l&apos;ordinateur hôte.</translation>
    </message>
    <message>
        <source>Connection Established</source>
        <translation>Connexion établie</translation>
    </message>
    <message>
        <source>Connected</source>
        <translation>Connecté</translation>
    </message>
    <message>
        <source>Choice Accepted, Waiting to Start</source>
        <translation>Choix accepté, en attente du départ</translation>
    </message>
    <message>
        <source>Starting Game</source>
        <translation>La partie commence</translation>
    </message>
    <message>
        <source>The game has started without you.</source>
        <translation>La partie a commencé sans vous.</translation>
    </message>
    <message>
        <source>You should be running %1.</source>
        <translation>Vous devriez utiliser %1.</translation>
    </message>
    <message>
        <source>You should be running %1 %2.</source>
        <translation>Vous devriez utiliser %1 %2.</translation>
    </message>
    <message>
        <source>You were kicked out of the game.</source>
        <translation>Vous avez été exclu de la partie.</translation>
    </message>
    <message>
        <source>Are you sure you want to remove %1 from the game?</source>
        <translation>Voulez-vous vraiment retirer %1 de la partie&#xa0;?</translation>
    </message>
    <message>
        <source>This computer cannot host a network game.
%1.
Another program, or another copy of QX, may be using TCP port %2.</source>
        <translation>Cet ordinateur ne peut pas héberger de partie en réseau.
%1.
Un autre programme, ou une autre copie de QX, utilise peut-être le port TCP %2.</translation>
    </message>
    <message>
        <source>Network Connections: %1</source>
        <translation>Connexions réseau&#xa0;: %1</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;OK</translation>
    </message>
    <message>
        <source>&amp;Select</source>
        <translation>&amp;Choisir</translation>
    </message>
    <message>
        <source>Not Connected</source>
        <translation>Non connecté</translation>
    </message>
    <message>
        <source>Connecting to %1...</source>
        <translation>Connexion à %1...</translation>
    </message>
    <message>
        <source>New Game</source>
        <translation>Nouvelle partie</translation>
    </message>
    <message>
        <source>Host</source>
        <translation>Hôte</translation>
    </message>
    <message>
        <source>Guest</source>
        <translation>Invité</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Annuler</translation>
    </message>
    <message>
        <source>Number of Players</source>
        <translation>Nombre de joueurs</translation>
    </message>
    <message>
        <source>With 9 or 10 players, choose 2 or more decks (Options &gt; Number Of Decks): with one deck a round may never end.</source>
        <translation>À 9 ou 10 joueurs, choisissez 2 jeux ou plus (Options &gt; Nombre de jeux)&#xa0;: avec un seul jeu, une manche risque de ne jamais finir.</translation>
    </message>
    <message>
        <source>Human Players</source>
        <translation>Joueurs humains</translation>
    </message>
    <message>
        <source>Network Play</source>
        <translation>Jeu en réseau</translation>
    </message>
    <message>
        <source>Host&apos;s Name/IP:</source>
        <translation>Nom/IP de l&apos;hôte&#xa0;:</translation>
    </message>
</context>
<context>
    <name>qx::OptionsCommands</name>
    <message>
        <source>You will have to begin a new game after this change. Continue?</source>
        <translation>Vous devrez commencer une nouvelle partie après ce changement. Continuer&#xa0;?</translation>
    </message>
    <message>
        <source>Background Color</source>
        <translation>Couleur du fond</translation>
    </message>
</context>
<context>
    <name>qx::OptionsStore</name>
    <message>
        <source>The setting &quot;%1&quot; in section &quot;%2&quot; has the value &quot;%3&quot;, which QX cannot use. The current value is kept.</source>
        <translation>Le réglage « %1 » de la section « %2 » a la valeur « %3 », que QX ne peut pas utiliser. La valeur actuelle est conservée.</translation>
    </message>
    <message>
        <source>The setting %1 is missing from section &quot;%2&quot;. Its current value is kept.</source>
        <translation>Le réglage %1 manque dans la section « %2 ». Sa valeur actuelle est conservée.</translation>
    </message>
    <message>
        <source>The settings %1 are missing from section &quot;%2&quot;. Their current values are kept.</source>
        <translation>Les réglages %1 manquent dans la section « %2 ». Leurs valeurs actuelles sont conservées.</translation>
    </message>
    <message>
        <source>QX cannot read its settings file %1: %2. It starts with the built-in options.</source>
        <translation>QX ne peut pas lire son fichier de réglages %1&#xa0;: %2. Il démarre avec les options intégrées.</translation>
    </message>
    <message>
        <source>QX cannot write its settings file %1: %2. Options can still be changed, but Save Options cannot keep them.</source>
        <translation>QX ne peut pas écrire son fichier de réglages %1&#xa0;: %2. Les options peuvent toujours être modifiées, mais « Enregistrer les options » ne pourra pas les conserver.</translation>
    </message>
    <message>
        <source>QX cannot read its settings file %1: %2. The options in use are kept.</source>
        <translation>QX ne peut pas lire son fichier de réglages %1&#xa0;: %2. Les options en cours sont conservées.</translation>
    </message>
    <message>
        <source>QX cannot save its options to %1: %2. The options in use are kept, and the file is left as it was.</source>
        <translation>QX ne peut pas enregistrer ses options dans %1&#xa0;: %2. Les options en cours sont conservées et le fichier reste tel quel.</translation>
    </message>
</context>
<context>
    <name>qx::Reg</name>
    <message>
        <source>It is a folder, not a file</source>
        <translation>C&apos;est un dossier, pas un fichier</translation>
    </message>
    <message>
        <source>It cannot be read</source>
        <translation>Il ne peut pas être lu</translation>
    </message>
    <message>
        <source>The folder %1 cannot be made</source>
        <translation>Le dossier %1 ne peut pas être créé</translation>
    </message>
    <message>
        <source>It cannot be written</source>
        <translation>Il ne peut pas être écrit</translation>
    </message>
</context>
<context>
    <name>qx::SeatName</name>
    <message>
        <source>Computer %1</source>
        <translation>Ordinateur %1</translation>
    </message>
    <message>
        <source>Player %1</source>
        <translation>Joueur %1</translation>
    </message>
</context>
<context>
    <name>qx::SplashWindow</name>
    <message>
        <source>Loading . . .</source>
        <translation>Chargement . . .</translation>
    </message>
    <message>
        <source>Keep the total under 100.</source>
        <translation>Gardez le total sous 100.</translation>
    </message>
</context>
<context>
    <name>qx::StrikesWindow</name>
    <message>
        <source>Strikes</source>
        <translation>Pénalités</translation>
    </message>
</context>
<context>
    <name>qx::TablePainter</name>
    <message>
        <source>1 card left</source>
        <translation>1 carte restante</translation>
    </message>
    <message>
        <source>%1 cards left</source>
        <translation>%1 cartes restantes</translation>
    </message>
    <message>
        <source>OUT</source>
        <translation>ÉLIMINÉ</translation>
    </message>
    <message>
        <source>Press F2 to begin</source>
        <translation>Appuyez sur F2 pour commencer</translation>
    </message>
    <message>
        <source>of %1</source>
        <translation>sur %1</translation>
    </message>
    <message>
        <source>Games won</source>
        <translation>Parties gagnées</translation>
    </message>
    <message>
        <source>No winner yet</source>
        <translation>Pas encore de gagnant</translation>
    </message>
    <message>
        <source>TOTAL</source>
        <translation>TOTAL</translation>
    </message>
    <message>
        <source>of 99</source>
        <translation>sur 99</translation>
    </message>
</context>
<context>
    <name>qx::TableView</name>
    <message>
        <source>&amp;Resume</source>
        <translation>&amp;Reprendre</translation>
    </message>
</context>
</TS>
