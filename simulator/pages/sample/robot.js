'use strict';

/*
 * The view "Robot": what state the robot is in, and the buttons of whoever
 * looks after it.
 */
window.sample = window.sample || {};

(function (sample) {

  const SCRIPT_NAME = 'welcome';

  const element = (id) => document.getElementById(id);
  const { asText, asTexts } = sample.values;
  const { show } = sample.language;

  function createRobot(app) {

    function onInteractionState({ state, Reason: reason }) {
      element('interaction-state').dataset.state = asText(state);
      if (state === 'Interaction') {
        show('interaction-state', 'interactionOn', asText(reason));
      } else if (state === 'NonInteraction') {
        show('interaction-state', 'interactionOff');
      } else {
        show('interaction-state', 'interactionUnknown');
      }
    }

    function onOperatorStatus({ status }) {
      if (typeof status === 'boolean') {
        show('operator-state', status ? 'operatorOn' : 'operatorOff');
      }
    }

    function toggleDrawer(open) {
      element('messages-drawer').classList.toggle('is-open', open);
      element('messages-open').setAttribute('aria-expanded', String(open));
      element(open ? 'messages-close' : 'messages-open').focus();
    }

    function onWriteLog() {
      app.writeLog('info', 'The log button was touched');
      show('log-state', 'logWritten', app.clockTime());
    }

    show('interaction-state', 'interactionUnknown');
    show('script-state', 'scriptUnknown');
    show('operator-state', 'operatorUnknown');
    show('log-state', 'logUnknown');

    return {
      reactions: [
        ['system.interaction.state', onInteractionState],
        ['system.scripts.start.result', ({ result }) => show('script-state', 'scriptResult', asTexts(result).join(', '))],
        ['system.scripts.end', () => show('script-state', 'scriptEnd')],
        ['operator.call.response', ({ response }) => show('operator-state', 'operatorResponse', asText(response))],
        ['operator.control.status', onOperatorStatus],
      ],
      buttons: {
        'interaction-start': () => app.send('system.interaction.control', { state: 'Start' }),
        'interaction-stop': () => app.send('system.interaction.control', { state: 'Stop' }),
        'script-start': () => app.send('system.scripts.control', { start: SCRIPT_NAME }),
        'script-stop': () => app.send('system.scripts.control', { stop: true }),
        'operator-call': () => app.send('operator.call.request', { call: true }),
        'operator-withdraw': () => app.send('operator.call.request', { call: false }),
        'write-log': onWriteLog,
        'messages-open': () => toggleDrawer(true),
        'messages-close': () => toggleDrawer(false),
      },
    };
  }

  sample.createRobot = createRobot;

})(window.sample);
