'use strict';

/*
 * Everything the page says itself, in its two languages. A text that depends on
 * something is a function of it.
 */
window.sample = window.sample || {};

window.sample.texts = {
  en: {
    languages: 'Language',
    hello: 'Hello!',
    helloName: (name) => `Hello, ${name}`,

    connection: 'Robot',
    connecting: 'Connecting…',
    connected: 'Connected',
    driveMode: 'Drive mode',
    driveStatus: 'Drive status',
    driveCharge: 'Charger',
    touches: 'Touches',

    conversation: 'Conversation',
    conversationHint: 'Speak to the robot. What you both say appears here.',
    robotSays: 'Robot:',
    userSays: 'You:',

    start: 'Start',
    stop: 'Stop',
    interaction: 'Interaction',
    interactionUnknown: 'State not known yet',
    interactionOn: (reason) => (reason === '' ? 'Running' : `Running (reason ${reason})`),
    interactionOff: 'Not running',

    script: 'Script “welcome”',
    scriptUnknown: 'Not started yet',
    scriptResult: (result) => `Result: ${result || 'none'}`,
    scriptEnd: 'Ended',

    operator: 'Operator',
    operatorUnknown: 'Not called yet',
    operatorResponse: (response) => `Answer: ${response}`,
    operatorOn: 'Operator has taken over',
    operatorOff: 'Operator is not in control',
    call: 'Call',
    withdraw: 'Withdraw',

    log: 'Log',
    logUnknown: 'Nothing written yet',
    logWritten: (time) => `Written at ${time}`,
    writeLog: 'Write',
    messages: 'Messages',
    close: 'Close',
    noTopic: '(no topic)',
  },

  de: {
    languages: 'Sprache',
    hello: 'Hallo!',
    helloName: (name) => `Hallo, ${name}`,

    connection: 'Roboter',
    connecting: 'Verbinde …',
    connected: 'Verbunden',
    driveMode: 'Fahrmodus',
    driveStatus: 'Fahrstatus',
    driveCharge: 'Ladestation',
    touches: 'Berührungen',

    conversation: 'Gespräch',
    conversationHint: 'Sprechen Sie mit dem Roboter. Das Gespräch erscheint hier.',
    robotSays: 'Roboter:',
    userSays: 'Sie:',

    start: 'Starten',
    stop: 'Stoppen',
    interaction: 'Interaktion',
    interactionUnknown: 'Zustand noch unbekannt',
    interactionOn: (reason) => (reason === '' ? 'Läuft' : `Läuft (Grund ${reason})`),
    interactionOff: 'Läuft nicht',

    script: 'Skript „welcome“',
    scriptUnknown: 'Noch nicht gestartet',
    scriptResult: (result) => `Ergebnis: ${result || 'keines'}`,
    scriptEnd: 'Beendet',

    operator: 'Operator',
    operatorUnknown: 'Noch nicht gerufen',
    operatorResponse: (response) => `Antwort: ${response}`,
    operatorOn: 'Operator hat übernommen',
    operatorOff: 'Operator steuert nicht',
    call: 'Rufen',
    withdraw: 'Absagen',

    log: 'Protokoll',
    logUnknown: 'Noch nichts geschrieben',
    logWritten: (time) => `Geschrieben um ${time}`,
    writeLog: 'Schreiben',
    messages: 'Meldungen',
    close: 'Schließen',
    noTopic: '(ohne Thema)',
  },
};
